#include "view_qt/person.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTreeWidgetItemIterator>
#include <QWindow>

#include "view/qt/tree_panel.h"

namespace vanzet::test {

using view::ScriptLine;

void Type(QWidget& widget, const QString& text) {
  QTest::mouseClick(&widget, Qt::LeftButton);
  QTest::keyClick(&widget, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&widget, Qt::Key_Delete);
  for (const QChar c : text)
    QTest::sendKeyEvent(QTest::Click, &widget, Qt::Key_unknown, QString(c), Qt::NoModifier);
}

void ChooseEntry(QComboBox& combo, int index) {
  if (index < 0) {
    // No hand can do that; scripts may.
    combo.setCurrentIndex(-1);
    emit combo.activated(-1);
    return;
  }
  combo.showPopup();
  QAbstractItemView& list = *combo.view();
  list.setCurrentIndex(list.model()->index(index, 0));
  QTest::keyClick(&list, Qt::Key_Return);
}

Result<void> Person::Do(const ScriptLine& line) {
  const std::string& word = line.front().text;
  if (word == "select") return Select(line);
  if (word == "context") return Context(line);
  if (word == "set") return Set(line);
  if (word == "choose") return Choose(line);
  if (word == "press") return Press(line);
  if (word == "close") {
    window_.close();
    return {};
  }
  return Fault{"unknown command '" + word + "'"};
}

Result<void> Person::Select(const ScriptLine& line) {
  const QRect place = Place(line[1].text);
  if (place.isNull()) return Fault{"node '" + line[1].text + "' is not in the tree"};
  view::qt::TreePanel& tree = window_.Tree();
  // A node that is selected has to be left to be selected again.
  const QTreeWidgetItem* const item = tree.itemAt(place.center());
  if (item->isSelected()) tree.clearSelection();
  QTest::mouseClick(tree.viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
  return {};
}

Result<void> Person::Context(const ScriptLine& line) {
  const QRect place = Place(line[1].text);
  if (place.isNull()) return Fault{"node '" + line[1].text + "' is not in the tree"};
  responder_.entry = line.size() == 3 ? std::stoi(line[2].text) : 0;
  QWidget& viewport = *window_.Tree().viewport();
  QTest::mouseClick(window_.windowHandle(), Qt::RightButton, Qt::NoModifier,
                    viewport.mapTo(&window_, place.center()));
  if (responder_.entry == 0) return {};
  responder_.entry = 0;
  return Fault{"node " + line[1].text + " does not offer command " + line[2].text};
}

Result<void> Person::Set(const ScriptLine& line) {
  const auto widget = Reach(line[1].text);
  if (!widget) return widget.fault();
  const QString value = QString::fromStdString(line[2].text);
  if (auto* const check = qobject_cast<QCheckBox*>(*widget)) {
    if (check->isChecked() != (value == QStringLiteral("1")))
      QTest::mouseClick(check, Qt::LeftButton, {}, {5, check->height() / 2});
    return {};
  }
  auto* const combo = qobject_cast<QComboBox*>(*widget);
  if (combo != nullptr && !combo->isEditable()) {
    // Nobody types there; what a script puts in leaves nothing selected.
    ChooseEntry(*combo, -1);
  } else {
    Type(combo != nullptr ? *combo->lineEdit() : **widget, value);
  }
  return {};
}

Result<void> Person::Choose(const ScriptLine& line) {
  const auto widget = Reach(line[1].text);
  if (!widget) return widget.fault();
  auto* const combo = qobject_cast<QComboBox*>(*widget);
  if (combo == nullptr) return Fault{"control " + line[1].text + " is not a combo"};
  const QString text = QString::fromStdString(line[2].text);
  bool isNumber = false;
  int index = text.toInt(&isNumber);
  if (line[2].isQuoted || !isNumber) index = combo->findText(text);
  const bool isThere = index >= -1 && index < combo->count() && (index >= 0 || !line[2].isQuoted);
  if (!isThere) {
    return Fault{"'" + line[2].text + "' is not one of the " + std::to_string(combo->count()) + " entries"};
  }
  ChooseEntry(*combo, index);
  return {};
}

Result<void> Person::Press(const ScriptLine& line) {
  const auto widget = Reach(line[1].text);
  if (!widget) return widget.fault();
  auto* const button = qobject_cast<QPushButton*>(*widget);
  if (button == nullptr) return Fault{"control " + line[1].text + " is not a button"};
  QTest::mouseClick(button, Qt::LeftButton);
  return {};
}

Result<QWidget*> Person::Reach(const std::string& id) const {
  QWidget* const widget = window_.WidgetOf(std::stoi(id));
  if (widget == nullptr) return Fault{"unknown control '" + id + "'"};
  if (!widget->isVisibleTo(&window_)) return Fault{"control " + id + " is hidden"};
  if (!widget->isEnabled()) return Fault{"control " + id + " is disabled"};
  return widget;
}

QRect Person::Place(const std::string& node) const {
  view::qt::TreePanel& tree = window_.Tree();
  for (QTreeWidgetItemIterator item(&tree); *item != nullptr; ++item) {
    if ((*item)->data(0, Qt::UserRole).toString().toStdString() != node) continue;
    tree.scrollToItem(*item);
    return tree.visualItemRect(*item);
  }
  return {};
}

}  // namespace vanzet::test
