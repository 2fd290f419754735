#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "view/dialog.h"
#include "view/qt/mnemonics.h"

namespace vanzet::view::qt {

/// Sends an event to the dialog; when it returns, the window shows what came of it.
using Send = std::function<void(const std::function<void(Dialog&)>&)>;

/// The widget that shows one control, and sends what a person does to it. Its object name is the id.
class ControlWidget {
 public:
  virtual ~ControlWidget() = default;

  /// Belongs to its parent widget.
  QWidget* Widget() const { return widget_; }
  std::int32_t Id() const { return id_; }

  /// Takes over the state of the control. Sends nothing.
  void Show(const Control& control);

  /// A widget that is seen and enabled together with this one: its unit, its name.
  void Accompany(QWidget* companion) { companions_.push_back(companion); }

  /// Gives the text of the widget, if it has one that is pressed or that leads to another widget, a letter.
  virtual void MarkMnemonic(Mnemonics& /*mnemonics*/) {}

  /// Names the widget for whoever cannot see where it stands.
  void SetSpokenName(const QString& name);

 protected:
  ControlWidget(std::int32_t id, QWidget* widget);
  virtual void ShowContent(const Control& control) = 0;

 private:
  std::int32_t id_;
  QWidget* widget_;
  std::vector<QWidget*> companions_;
};

/// The widget for a control of that kind, not for pictures.
std::unique_ptr<ControlWidget> MakeControlWidget(const Control& control, const Send& send, QWidget* parent);

}  // namespace vanzet::view::qt
