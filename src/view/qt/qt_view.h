#pragma once

#include <QPointer>

#include "view/qt/boxes.h"
#include "view/qt/dialog_window.h"
#include "view/qt/texts.h"
#include "view/view.h"

namespace vanzet::view::qt {

/// Shows the dialog to a user on a display.
/// Requires: the process has a QApplication, and all calls come on its thread.
class QtView final : public View, public DialogView {
 public:
  ~QtView() override;

  platform::BoxPresenter& Boxes() override { return boxes_; }
  platform::FilePresenter& Files() override { return files_; }
  DialogView* ForDialog() override { return this; }

  std::int32_t Serve(Dialog& dialog, void* parent, std::int32_t flags) override;
  void StateChanged(const DialogState& state) override;
  void SetVisible(bool isVisible) override;
  void Focus(std::int32_t control, bool selectsAll) override;
  std::optional<std::int32_t> Popup(std::int32_t node, const std::vector<PopupEntry>& entries) override;

  /// A QWidget*.
  void* Window() override;

 private:
  TextsOfQt textsOfQt_;
  qt::Boxes boxes_;
  FileDialogs files_;
  QPointer<DialogWindow> window_;  ///< while a dialog is served; a parent that is destroyed destroys it too
};

}  // namespace vanzet::view::qt
