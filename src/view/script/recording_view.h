#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "view/script/recording.h"
#include "view/view.h"

namespace vanzet::view {

/// Shows everything through another view, and writes what the person does there as a script, which has the
/// same effect when it is played: docs/formats/script.md.
///
/// Answers   and chosen files precede the line that asked for them, as a script needs it; those of the
///           start-up are the first lines
/// Picks     with the mouse are recorded as the values that they brought, so that a script needs no picks
class RecordingView final : public View,
                            public platform::BoxPresenter,
                            public platform::FilePresenter,
                            public DialogView {
 public:
  /// `begin` makes the recording of a dialog when it starts.
  RecordingView(std::unique_ptr<View> shown, std::function<std::unique_ptr<Recording>()> begin)
      : shown_(std::move(shown)), begin_(std::move(begin)) {}

  platform::BoxPresenter& Boxes() override { return *this; }
  platform::FilePresenter& Files() override { return *this; }
  DialogView* ForDialog() override { return shown_->ForDialog() == nullptr ? nullptr : this; }

  std::int32_t Present(const platform::MessageBox& message) override;
  std::optional<std::string> Choose(const platform::FileQuestion& question) override;

  std::int32_t Serve(Dialog& dialog, void* parent, std::int32_t flags) override;
  void StateChanged(const DialogState& state) override { shown_->ForDialog()->StateChanged(state); }
  void SetVisible(bool isVisible) override;
  void Focus(std::int32_t control, bool selectsAll) override {
    shown_->ForDialog()->Focus(control, selectsAll);
  }
  std::optional<std::int32_t> Popup(std::int32_t node, const std::vector<PopupEntry>& entries) override;
  void* Window() override { return shown_->ForDialog()->Window(); }

 private:
  std::unique_ptr<View> shown_;
  std::function<std::unique_ptr<Recording>()> begin_;
  Happenings happenings_;
};

}  // namespace vanzet::view
