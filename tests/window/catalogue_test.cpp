#include <algorithm>

#include "catalogue_fixture.h"
#include "devices/kinds.h"

namespace vanzet::test {
namespace {

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

TEST_F(CatalogueOfTheWindow, ComparesTheTwoDevicesThatAreSelected) {
  ClickRow(kDevice);
  const QTableWidget& values = page().panel().values();
  EXPECT_FALSE(values.isVisible());
  ClickRow(kOther, Qt::ControlModifier);
  ASSERT_TRUE(values.isVisible());
  EXPECT_EQ(values.horizontalHeaderItem(1)->text(), kDevice);
  EXPECT_EQ(values.horizontalHeaderItem(2)->text(), kOther);
  EXPECT_EQ(values.item(0, 1)->text(), "Chuck");
  EXPECT_FALSE(values.item(0, 1)->font().bold()) << "both are chucks";
  EXPECT_EQ(values.item(1, 1)->text(), TextAt(kDevice, kA));
  EXPECT_EQ(values.item(1, 2)->text(), TextAt(kOther, kA));
  EXPECT_TRUE(values.item(1, 0)->font().bold());
}

TEST_F(CatalogueOfTheWindow, IsSortedByAClickOnAHeading) {
  const auto names = [this] {
    QStringList all;
    for (int row = 0; row < model().rowCount(); ++row) all << model().index(row, 0).data().toString();
    return all;
  };
  const auto valuesOfD = [this] {
    std::vector<double> all;
    for (const auto* device : model().Devices()) {
      if (devices::FindLetter(device->params.type, 'D') != nullptr) all.push_back(device->params.D);
    }
    return all;
  };
  const QStringList file = names();
  ClickRow(kOther);
  ClickHeading(kD);
  ASSERT_GT(valuesOfD().size(), 1U);
  EXPECT_TRUE(std::ranges::is_sorted(valuesOfD()));
  EXPECT_EQ(page().table().selectionModel()->selectedRows().front().data(), kOther) << "it stays selected";
  EXPECT_EQ(model().index(model().rowCount() - 1, kD).data(), "") << "devices without the letter are last";
  ClickHeading(kD);
  EXPECT_TRUE(std::ranges::is_sorted(valuesOfD(), std::greater()));
  EXPECT_EQ(model().index(model().rowCount() - 1, kD).data(), "");
  ClickHeading(kD);
  EXPECT_EQ(names(), file);
  ClickHeading(DeviceModel::kName);
  QStringList sorted = file;
  sorted.sort(Qt::CaseInsensitive);
  EXPECT_EQ(names(), sorted);
  Type(kDevice, kA, "123");
  EXPECT_EQ(names(), sorted) << "the order stays";
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
