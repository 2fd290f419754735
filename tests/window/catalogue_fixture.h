#pragma once

#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTableWidget>
#include <QTimer>
#include <string>

#include "support/places.h"
#include "window_fixture.h"

namespace vanzet::test {

using testing::HasSubstr;
using window::Command;
using window::DeviceModel;

/// The page of the catalogue over the sample project, used by mouse and keys.
class CatalogueOfTheWindow : public WindowTest {
 protected:
  void SetUp() override {
    OpenSample();
    actions()[Command::kCatalogue]->trigger();
    QCoreApplication::processEvents();
    ASSERT_TRUE(page().isVisible());
  }

  window::CataloguePage& page() { return Part<window::CataloguePage>(); }
  DeviceModel& model() { return page().model(); }
  std::string File() const { return ReadBytes(folder / "lathe" / "clampdevice.cld"); }

  void Search(const char* text) {
    auto* const line = page().findChild<QLineEdit*>();
    line->setFocus();
    line->selectAll();
    QTest::keyClick(line, Qt::Key_Delete);
    QTest::keyClicks(line, text);
  }

  bool WaitForRows(int count) {
    return QTest::qWaitFor([&] { return model().rowCount() == count; });
  }

  int RowOf(const std::string& name) { return model().RowOf(name).value(); }
  QString TextAt(const std::string& name, int column) {
    return model().index(RowOf(name), column).data().toString();
  }

  /// The line in which a cell is edited; null while none is.
  QLineEdit* Editor() { return page().table().viewport()->findChild<QLineEdit*>(); }

  /// The same after a double click on the cell.
  QLineEdit* EditorOf(const std::string& name, int column) {
    QTableView& table = page().table();
    const QModelIndex cell = model().index(RowOf(name), column);
    table.scrollTo(cell);
    const QPoint place = table.visualRect(cell).center();
    QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    return Editor();
  }

  /// Types a text in the place of the one that is edited.
  void Finish(QLineEdit& edit, const char* text) {
    edit.selectAll();
    QTest::keyClicks(&edit, text);
    const QSignalSpy written(&page(), &window::CataloguePage::EditWanted);
    QTest::keyClick(&edit, Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !written.isEmpty(); }));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  /// Types a value into a cell, from the double click to Enter.
  void Type(const std::string& name, int column, const char* text) {
    auto* const edit = EditorOf(name, column);
    ASSERT_NE(edit, nullptr) << "the cell cannot be edited";
    Finish(*edit, text);
  }

  void ClickHeading(int column) {
    QHeaderView& header = *page().table().horizontalHeader();
    const QPoint place(header.sectionViewportPosition(column) + header.sectionSize(column) / 2,
                       header.height() / 2);
    QTest::mouseClick(header.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QCoreApplication::processEvents();
  }

  /// Opens the menu of the button for new devices, and chooses an entry; the name of the device is edited
  /// then.
  void ChooseToAdd(const QString& text) {
    for (QPushButton* button : page().findChildren<QPushButton*>()) {
      if (button->menu() == nullptr) continue;
      QTimer::singleShot(0, [=] {
        for (QAction* action : button->menu()->actions()) {
          if (action->text() == text) action->trigger();
        }
        button->menu()->close();
      });
      QTest::mouseClick(button, Qt::LeftButton);
    }
    EXPECT_TRUE(QTest::qWaitFor([this] { return Editor() != nullptr; })) << "no name is edited";
  }

  void ClickButton(const QString& text) {
    for (QPushButton* button : page().findChildren<QPushButton*>()) {
      if (button->text() == text) QTest::mouseClick(button, Qt::LeftButton);
    }
    QCoreApplication::processEvents();
  }

  void ClickRow(const std::string& name, Qt::KeyboardModifiers keys = {}) {
    QTableView& table = page().table();
    const QModelIndex cell = model().index(RowOf(name), 0);
    table.scrollTo(cell);
    QTest::mouseClick(table.viewport(), Qt::LeftButton, keys, table.visualRect(cell).center());
  }

  static constexpr const char *kDevice = "Chuck 160", *kOther = "Chuck 210";
  static constexpr int kA = DeviceModel::kFirstLetter, kD = kA + 3;
};

}  // namespace vanzet::test
