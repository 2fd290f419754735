#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "window_fixture.h"

namespace vanzet::test {
namespace {

class Accessible : public WindowTest {
 protected:
  static bool IsControl(const QWidget* widget) {
    return qobject_cast<const QAbstractButton*>(widget) != nullptr ||
           (qobject_cast<const QAbstractItemView*>(widget) != nullptr &&
            qobject_cast<const QHeaderView*>(widget) == nullptr) ||
           qobject_cast<const QComboBox*>(widget) != nullptr ||
           qobject_cast<const QLineEdit*>(widget) != nullptr ||
           qobject_cast<const QPlainTextEdit*>(widget) != nullptr ||
           qobject_cast<const window::DrawingView*>(widget) != nullptr ||
           qobject_cast<const window::EquipmentView*>(widget) != nullptr;
  }
  static std::string NameOf(QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name).toStdString();
  }
  /// Each control that can be seen in `top` has a name. That of a list is its value: it has a description,
  /// too.
  static void ExpectNames(const QWidget& top) {
    for (QWidget* const widget : top.findChildren<QWidget*>()) {
      if (!IsControl(widget) || !widget->isVisible()) continue;
      const std::string about = widget->metaObject()->className() +
                                (" " + widget->objectName()).toStdString() + " in " +
                                widget->parentWidget()->objectName().toStdString();
      EXPECT_NE(NameOf(widget), "") << about;
      if (qobject_cast<const QComboBox*>(widget) != nullptr) {
        EXPECT_NE(widget->accessibleDescription(), "") << about;
      }
    }
  }
};

TEST_F(Accessible, AreAllControlsOfTheWindowByName) {
  OpenSample(true);
  Part<window::BodyDock>().raise();
  notice().SetMessage("x");
  QCoreApplication::processEvents();
  ExpectNames(*window);
  EXPECT_EQ(NameOf(&drawing()), "Drawing");
  EXPECT_EQ(NameOf(&equipment()), "Equipment");
}

TEST_F(Accessible, AreTheControlsBeforeAProjectIsOpenAndThoseOfTheHelp) {
  ExpectNames(*window);
  ASSERT_TRUE(Part<window::HelpWindow>().Open("window.md"));
  ExpectNames(Part<window::HelpWindow>());
}

TEST_F(Accessible, AreTheControlsOfAPick) {
  OpenSample();
  Play("select 19\npress 2005\n", {[this] {
         ExpectNames(hint());
         QTest::keyClick(window.get(), Qt::Key_Escape);
       }});
}

}  // namespace
}  // namespace vanzet::test
