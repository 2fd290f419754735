#pragma once

#include "platform/file_dialog.h"

class QWidget;

namespace vanzet::view::qt {

/// File dialogs on the display.
class FileDialogs final : public platform::FilePresenter {
 public:
  std::optional<std::string> Choose(const platform::FileQuestion& question) override;

  /// Stands behind dialogs whose owner is no widget; null for none.
  QWidget* fallbackOwner = nullptr;
};

}  // namespace vanzet::view::qt
