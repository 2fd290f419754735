#pragma once

#include <QString>

#include "base/result.h"
#include "view/qt/dialog_window.h"
#include "view/script/script.h"
#include "view_qt/responder.h"

class QComboBox;

namespace vanzet::test {

/// Does with mouse and keyboard what a line of a script says: select, context, set, choose, press, close.
/// What a person could not do is a fault in the words that scripts use.
class Person {
 public:
  Person(view::qt::DialogWindow& window, Responder& responder) : window_(window), responder_(responder) {}

  Result<void> Do(const view::ScriptLine& line);

 private:
  Result<void> Select(const view::ScriptLine& line);
  Result<void> Context(const view::ScriptLine& line);
  Result<void> Set(const view::ScriptLine& line);
  Result<void> Choose(const view::ScriptLine& line);
  Result<void> Press(const view::ScriptLine& line);

  /// The widget of a control, if a person could reach it now.
  Result<QWidget*> Reach(const std::string& id) const;

  /// Where a node is drawn, scrolled to; nothing for one that is not in the tree.
  QRect Place(const std::string& node) const;

  view::qt::DialogWindow& window_;
  Responder& responder_;
};

/// Replaces the text of the widget, key by key.
void Type(QWidget& widget, const QString& text);

/// Opens the list of a combo and takes an entry.
void ChooseEntry(QComboBox& combo, int index);

}  // namespace vanzet::test
