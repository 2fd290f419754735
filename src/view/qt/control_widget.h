#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "base/length_unit.h"
#include "view/dialog.h"
#include "view/shared/mnemonics.h"

namespace vanzet::view::qt {

/// Sends an event to the dialog; when it returns, the window shows the result.
using Send = std::function<void(const std::function<void(Dialog&)>&)>;

/// The widget that shows one control and sends the user's changes. Its object name is the id.
class ControlWidget {
 public:
  virtual ~ControlWidget() = default;

  /// Owned by its parent widget.
  QWidget* Widget() const { return widget_; }
  std::int32_t Id() const { return id_; }

  /// Shows the state of the control. Sends nothing.
  void Show(const Control& control);

  /// Adds a widget that is visible and enabled together with this one: its unit, its name.
  void Accompany(QWidget* companion) { companions_.push_back(companion); }

  /// Sets the unit in which the widget shows and takes its content, a length. Requires: `Show` follows.
  virtual void SetUnit(LengthUnit /*unit*/) {}

  /// Marks a letter in the text of the widget, if the text can be pressed or leads to another widget.
  virtual void MarkMnemonic(Mnemonics& /*mnemonics*/) {}

  /// Marks the content as one that cannot be, and gives the reason; an empty one unmarks it.
  virtual void ShowFault(const QString& /*reason*/) {}

  /// Marks a button: it would store values that are not stored yet.
  virtual void MarkUnstored(bool /*isUnstored*/) {}

  /// Has the user choose out of a list with pictures; combos only.
  virtual void OpenChooser() {}

  /// Sets the name of the widget for readers of the screen, and its tool tip.
  void SetSpokenName(const QString& name);

 protected:
  ControlWidget(std::int32_t id, QWidget* widget);
  virtual void ShowContent(const Control& control) = 0;

 private:
  std::int32_t id_;
  QWidget* widget_;
  std::vector<QWidget*> companions_;
};

/// The widget for a control of that kind; null for a picture.
std::unique_ptr<ControlWidget> MakeControlWidget(const Control& control, const Send& send, QWidget* parent);

}  // namespace vanzet::view::qt
