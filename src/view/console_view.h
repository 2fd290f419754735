#pragma once

#include <optional>
#include <string>

#include "platform/message_box.h"
#include "view/view.h"

namespace vanzet::view {

/// The view without a user: boxes go to standard error and get the safe answer, file dialogs are cancelled,
/// and the dialog cannot be shown.
class ConsoleView final : public View {
 public:
  platform::BoxPresenter& Boxes() override { return boxes_; }
  platform::FilePresenter& Files() override { return files_; }
  DialogView* ForDialog() override { return nullptr; }

 private:
  class NoFiles final : public platform::FilePresenter {
   public:
    std::optional<std::string> Choose(const platform::FileQuestion& /*question*/) override {
      return std::nullopt;
    }
  };

  platform::ConsoleBoxes boxes_;
  NoFiles files_;
};

}  // namespace vanzet::view
