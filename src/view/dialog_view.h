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

/// What a dialog asks of whoever shows it.
class DialogView {
 public:
  virtual ~DialogView() = default;

  /// Shows the dialog and sends it events until it is no longer open. Returns the dialog's result.
  ///
  ///   parent  the host's main window, null when it has none; it stays enabled
  ///   flags   4: the dialog wants no idle messages
  virtual std::int32_t Serve(Dialog& dialog, void* parent, std::int32_t flags) = 0;

  /// The state is another one now; the view finds what has changed.
  virtual void StateChanged(const DialogState& state) = 0;

  /// Hides the whole dialog while a person works in the host's window, and shows it again.
  virtual void SetVisible(bool isVisible) = 0;

  virtual void Focus(std::int32_t control, bool selectsAll) = 0;

  /// A menu at a node. The command that was chosen, or nothing when it was dismissed.
  virtual std::optional<std::int32_t> Popup(std::int32_t node, const std::vector<PopupEntry>& entries) = 0;

  /// The dialog's window, for boxes that stand in front of it; null where there is none.
  virtual void* Window() = 0;
};

}  // namespace vanzet::view
