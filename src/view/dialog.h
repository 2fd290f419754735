#pragma once

#include <cstdint>
#include <string>

#include "view/dialog_state.h"

namespace vanzet::view {

/// The results of a dialog: how it was closed.
inline constexpr std::int32_t kClosedByOk = 1;
inline constexpr std::int32_t kClosedByFrame = 2;

/// A dialog as a view sees it: its state, and the events that a user can cause.
///
/// Story    a view shows the state and sends events until the dialog is no longer open. An event returns when
///          all its effects are done, posted commands included
/// Errors   an event for a control or node that does not exist or has no handler does nothing
class Dialog {
 public:
  virtual ~Dialog() = default;

  /// The state of this moment, valid until the next event.
  virtual const DialogState& State() = 0;

  virtual bool IsOpen() const = 0;

  /// How it was closed; 0 while it is open.
  virtual std::int32_t Result() const = 0;

  virtual void SelectNode(std::int32_t node) = 0;

  /// The context menu was asked for at that node.
  virtual void ContextAt(std::int32_t node) = 0;

  // Input into a control; no handler runs.
  virtual void SetText(std::int32_t control, const std::string& text) = 0;  ///< edits; combos select none
  virtual void SetChecked(std::int32_t control, bool isChecked) = 0;
  virtual void SetValue(std::int32_t control, std::int32_t value) = 0;

  /// Selects an entry of a combo, -1 for none.
  virtual void Choose(std::int32_t control, std::int32_t index) = 0;

  virtual void Press(std::int32_t button) = 0;

  /// The window frame or the Escape key.
  virtual void Close() = 0;
};

}  // namespace vanzet::view
