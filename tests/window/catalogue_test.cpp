#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>

#include "support/places.h"
#include "window_fixture.h"

namespace vanzet::test {
namespace {

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

  /// Types a value into a cell, from the double click to Enter.
  void Type(const std::string& name, int column, const char* text) {
    QTableView& table = page().table();
    const QModelIndex cell = model().index(RowOf(name), column);
    table.scrollTo(cell);
    const QPoint place = table.visualRect(cell).center();
    QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    auto* const edit = table.viewport()->findChild<QLineEdit*>();
    ASSERT_NE(edit, nullptr) << "the cell cannot be edited";
    edit->selectAll();
    QTest::keyClicks(edit, text);
    const QSignalSpy written(&page(), &window::CataloguePage::EditWanted);
    QTest::keyClick(edit, Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !written.isEmpty(); }));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
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
  static constexpr int kA = DeviceModel::kFirstLetter;
};

TEST_F(CatalogueOfTheWindow, FindsDevicesWhileTheirNameIsTyped) {
  const int all = model().rowCount();
  ASSERT_GT(all, 2);
  Search("JAW outside 210");
  EXPECT_TRUE(WaitForRows(1));
  EXPECT_EQ(model().index(0, 0).data(), "Hard jaw 210 outside stepped");
  Search("chuck A=100..110");
  EXPECT_TRUE(QTest::qWaitFor([&] { return model().rowCount() == 1 && model().RowOf(kOther); }));
  Search("no such device");
  EXPECT_TRUE(WaitForRows(0));
  Search("");
  EXPECT_TRUE(WaitForRows(all));
}

TEST_F(CatalogueOfTheWindow, ShowsValuesWithTheirUnitsAndNames) {
  EXPECT_THAT(TextAt(kDevice, kA).toStdString(), testing::EndsWith(" mm"));
  const QModelIndex cell = model().index(RowOf(kDevice), kA);
  EXPECT_THAT(cell.data(Qt::ToolTipRole).toString().toStdString(), HasSubstr("(A)"));
  EXPECT_EQ(cell.data(Qt::AccessibleTextRole).toString(),
            cell.data(Qt::ToolTipRole).toString() + " " + cell.data().toString());
  EXPECT_EQ(TextAt(kDevice, DeviceModel::kKind), "Chuck");
  actions().ActionOf("de")->trigger();
  EXPECT_EQ(TextAt(kDevice, DeviceModel::kKind), "Spannfutter");
}

TEST_F(CatalogueOfTheWindow, WritesAValueThatIsTypedIntoItsCellAndTakesItBack) {
  const std::string before = File();
  Type(kDevice, kA, "123,25");
  EXPECT_EQ(page().Fault(), "");
  EXPECT_EQ(TextAt(kDevice, kA), "123.25 mm");
  EXPECT_THAT(File(), HasSubstr("123.250000"));
  ClickButton("Undo the Last Edit");
  EXPECT_EQ(File(), before);
  EXPECT_NE(TextAt(kDevice, kA), "123.25 mm");
}

TEST_F(CatalogueOfTheWindow, RefusesWhatTheDialogRefuses) {
  const std::string before = File();
  Type(kDevice, kA, "0");
  EXPECT_THAT(page().Fault().toStdString(), HasSubstr("A (0) must be above 0"));
  Type(kDevice, kA, "abc");
  EXPECT_EQ(page().Fault(), "A: expected a number, found 'abc'");
  EXPECT_EQ(File(), before);
  Type(kDevice, kA, "123");
  EXPECT_EQ(page().Fault(), "");
}

TEST_F(CatalogueOfTheWindow, KeepsTheFiguresOfMakers) {
  const int speed = DeviceModel::kFirstFigure + 4;
  Type(kDevice, speed, "4500");
  EXPECT_EQ(page().Fault(), "");
  EXPECT_EQ(TextAt(kDevice, speed), "4500 1/min");
  EXPECT_THAT(ReadBytes(folder / "lathe" / "clampdevice.json"), HasSubstr("\"max_speed\""));
  Type(kDevice, speed, "-1");
  EXPECT_NE(page().Fault(), "");
  ClickButton("Undo the Last Edit");
  EXPECT_EQ(TextAt(kDevice, speed), "");
}

TEST_F(CatalogueOfTheWindow, DoesNotTakeBackWhatOthersHaveChanged) {
  Type(kDevice, kA, "123");
  std::string text = File();
  text.replace(text.find("123.000000"), 10, "124.000000");
  WriteBytes(folder / "lathe" / "clampdevice.cld", text);
  EXPECT_TRUE(QTest::qWaitFor([&] { return TextAt(kDevice, kA) == "124 mm"; })) << "it is shown";
  ClickButton("Undo the Last Edit");
  EXPECT_THAT(page().Fault().toStdString(), HasSubstr("was changed by others since"));
  EXPECT_EQ(File(), text);
}

TEST_F(CatalogueOfTheWindow, ComparesTheTwoDevicesThatAreSelected) {
  ClickRow(kDevice);
  EXPECT_EQ(page().panel().Differences(), "");
  ClickRow(kOther, Qt::ControlModifier);
  EXPECT_THAT(page().panel().Differences().toStdString(),
              testing::AllOf(HasSubstr(std::string(kDevice) + " -> " + kOther), HasSubstr("\nA ")));
}

TEST_F(CatalogueOfTheWindow, DrawsASheetOfTheDevicesThatAreListed) {
  Search(kDevice);
  ASSERT_TRUE(WaitForRows(1));
  ASSERT_TRUE(window->catalogueCommands().WriteSheet(folder / "sheet.svg"));
  const std::string svg = ReadBytes(folder / "sheet.svg");
  EXPECT_THAT(svg, testing::AllOf(HasSubstr(kDevice), testing::Not(HasSubstr(kOther))));
  ASSERT_TRUE(window->catalogueCommands().WriteSheet(folder / "sheet.png"));
  EXPECT_FALSE(QImage(QString::fromStdString((folder / "sheet.png").string())).isNull());
  Search("no such device");
  ASSERT_TRUE(WaitForRows(0));
  EXPECT_FALSE(window->catalogueCommands().WriteSheet(folder / "none.svg"));
}

TEST_F(CatalogueOfTheWindow, IsLeftByItsButtonAndByItsKeys) {
  ClickButton("Back to the Project");
  EXPECT_TRUE(drawing().isVisible());
  actions()[Command::kCatalogue]->trigger();
  EXPECT_TRUE(page().isVisible());
  actions()[Command::kCatalogue]->trigger();
  EXPECT_TRUE(drawing().isVisible());
}

TEST_F(CatalogueOfTheWindow, ShowsADeviceOfTheDefinition) {
  window->catalogueCommands().Leave();
  emit definition().DeviceWanted(kOther);
  EXPECT_TRUE(page().isVisible());
  EXPECT_EQ(model().rowCount(), 1);
  EXPECT_EQ(page().table().selectionModel()->selectedRows().size(), 1);
}

TEST_F(CatalogueOfTheWindow, HasNoPartForEachOfManyDevices) {
  const auto before = page().findChildren<QWidget*>().size();
  const std::string first = File();
  const std::size_t end = first.find('\n'), next = first.find('\n', end + 1);
  const std::string values = first.substr(end + 1, next - end);
  std::string text;
  for (int i = 0; i < 100'000; ++i) text += "Device " + std::to_string(i) + "\n" + values;
  WriteBytes(folder / "lathe" / "clampdevice.cld", text);
  EXPECT_TRUE(WaitForRows(100'000));
  page().table().scrollToBottom();
  EXPECT_FALSE(page().grab().isNull());
  Search("99999");
  EXPECT_TRUE(WaitForRows(1));
  EXPECT_EQ(page().findChildren<QWidget*>().size(), before);
}

}  // namespace
}  // namespace vanzet::test
