#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "view/dialog.h"

namespace vanzet::view {

struct PopupEntry {
  std::int32_t command;
  std::string text;
};

/// The requests of a dialog to the view that shows it.
class DialogView {
 public:
  virtual ~DialogView() = default;

  /// Shows the dialog and sends it events until it is no longer open. Returns the dialog's result.
  ///
  ///   parent  the host's main window, null when it has none; it stays enabled
  ///   flags   4: the dialog wants no idle messages
  virtual std::int32_t Serve(Dialog& dialog, void* parent, std::int32_t flags) = 0;

  /// The state has changed; the view finds the differences.
  virtual void StateChanged(const DialogState& state) = 0;

  /// Hides the whole dialog while the user works in the host's window, and shows it again.
  virtual void SetVisible(bool isVisible) = 0;

  virtual void Focus(std::int32_t control, bool selectsAll) = 0;

  /// Shows a menu at a node. Returns the chosen command, or nothing when the menu was dismissed.
  virtual std::optional<std::int32_t> Popup(std::int32_t node, const std::vector<PopupEntry>& entries) = 0;

  /// The dialog's window, which owns boxes; null when the view has none.
  virtual void* Window() = 0;
};

}  // namespace vanzet::view
