#pragma once

#include "platform/file_dialog.h"
#include "platform/message_box.h"

class QWidget;

/// Boxes and file dialogs on the display, and the windows that they belong to.
namespace vanzet::view::qt {

/// The widget of a window's handle: the host's main window where the host uses Qt, or the dialog's window.
/// Null for a handle that is not a widget of this process.
QWidget* WidgetOf(void* handle);

/// Boxes on the display. A box that is closed without a button gets the safe answer.
///
/// A box belongs to the window that its user works in, and gives the keyboard back to that: the modal window
/// that is up, else the dialog unless it is hidden, else the window that the message names.
class Boxes final : public platform::BoxPresenter {
 public:
  std::int32_t Present(const platform::MessageBox& message) override;

  /// The dialog's window; null for none.
  QWidget* dialog = nullptr;
};

/// File dialogs on the display.
class FileDialogs final : public platform::FilePresenter {
 public:
  std::optional<std::string> Choose(const platform::FileQuestion& question) override;

  /// The owner of dialogs whose own owner is not a widget; null for none.
  QWidget* fallbackOwner = nullptr;
};

}  // namespace vanzet::view::qt
