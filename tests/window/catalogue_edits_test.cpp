#include <QProcess>
#include <cstring>

#include "catalogue_fixture.h"
#include "support/test_server.h"

namespace vanzet::test {
namespace {

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

TEST_F(CatalogueOfTheWindow, AddsADeviceWhoseNameIsTypedAtOnce) {
  const std::string before = File();
  ChooseToAdd("Collet");
  auto* const edit = Editor();
  ASSERT_NE(edit, nullptr);
  EXPECT_EQ(edit->text(), "Collet");
  Finish(*edit, "Collet 42");
  EXPECT_EQ(page().Fault(), "");
  EXPECT_TRUE(model().RowOf("Collet 42"));
  EXPECT_EQ(page().table().selectionModel()->selectedRows().front().data(), "Collet 42");
  EXPECT_THAT(File(), testing::MatchesRegex("(.|\n)*\nCollet 42\n.*\n"));
  ClickButton("Undo the Last Edit");
  ClickButton("Undo the Last Edit");
  EXPECT_EQ(File(), before);
}

TEST_F(CatalogueOfTheWindow, AddsADeviceLikeTheSelectedOne) {
  const int speed = DeviceModel::kFirstFigure + 4;
  Type(kDevice, speed, "4500");
  ClickRow(kDevice);
  ChooseToAdd("Copy of the Selected Device");
  ASSERT_NE(Editor(), nullptr);
  QTest::keyClick(Editor(), Qt::Key_Escape);
  EXPECT_TRUE(page().isVisible()) << "Escape ended the edit alone";
  const std::string copy = std::string(kDevice) + " 2";
  EXPECT_EQ(TextAt(copy, kA), TextAt(kDevice, kA));
  EXPECT_EQ(TextAt(copy, speed), "4500 1/min");
}

TEST_F(CatalogueOfTheWindow, RemovesTheSelectedDevicesAndPutsThemBackInTheirPlaces) {
  Type(kDevice, DeviceModel::kFirstFigure + 4, "4500");
  const std::string before = File(), figures = ReadBytes(folder / "lathe" / "clampdevice.json");
  ClickRow(kDevice);
  ClickRow(kOther, Qt::ControlModifier);
  QTest::keyClick(&page().table(), Qt::Key_Delete);
  EXPECT_FALSE(model().RowOf(kDevice));
  EXPECT_FALSE(model().RowOf(kOther));
  EXPECT_THAT(File(), testing::Not(HasSubstr(kOther)));
  EXPECT_THAT(ReadBytes(folder / "lathe" / "clampdevice.json"), testing::Not(HasSubstr(kDevice)));
  ClickButton("Undo the Last Edit");
  EXPECT_EQ(File(), before);
  EXPECT_EQ(ReadBytes(folder / "lathe" / "clampdevice.json"), figures);
}

TEST_F(CatalogueOfTheWindow, RenamesADeviceByTheRulesOfTheCatalogue) {
  const int speed = DeviceModel::kFirstFigure + 4;
  Type(kDevice, speed, "4500");
  const std::string before = File();
  Type(kDevice, DeviceModel::kName, kOther);
  EXPECT_EQ(page().Fault(), QString("the catalogue already has the device '") + kOther + "'");
  EXPECT_EQ(File(), before);
  Type(kDevice, DeviceModel::kName, "Chuck of the old lathe");
  EXPECT_EQ(page().Fault(), "");
  std::string renamed = before;
  renamed.replace(renamed.find(kDevice), std::strlen(kDevice), "Chuck of the old lathe");
  EXPECT_EQ(File(), renamed);
  EXPECT_EQ(TextAt("Chuck of the old lathe", speed), "4500 1/min");
  ClickButton("Undo the Last Edit");
  EXPECT_EQ(File(), before);
  EXPECT_EQ(TextAt(kDevice, speed), "4500 1/min");
}

TEST_F(CatalogueOfTheWindow, KeepsAValueWhoseEditIsCancelled) {
  const std::string before = File();
  auto* const edit = EditorOf(kDevice, kA);
  ASSERT_NE(edit, nullptr);
  edit->selectAll();
  QTest::keyClicks(edit, "123");
  QTest::keyClick(edit, Qt::Key_Escape);
  QCoreApplication::processEvents();
  EXPECT_TRUE(page().isVisible());
  EXPECT_EQ(File(), before);
  QTest::keyClick(&page().table(), Qt::Key_Escape);
  EXPECT_FALSE(page().isVisible()) << "without an edit it leaves the page";
}

/// The same in a shop that works in inches.
class CatalogueInInches : public CatalogueOfTheWindow {
 protected:
  void SetUp() override {
    CatalogueOfTheWindow::SetUp();
    actions()[Command::kCatalogue]->trigger();
    const auto ini = folder / "lathe" / "bench.ini";
    WriteBytes(ini, ReadBytes(ini) + "\n[project]\nunit=inch\n");
    ASSERT_TRUE(window->projectCommands().Open(folder / "lathe"));
    actions()[Command::kCatalogue]->trigger();
    ASSERT_TRUE(page().isVisible());
  }
};

TEST_F(CatalogueInInches, ShowsAndTakesInches) {
  EXPECT_THAT(TextAt(kDevice, kA).toStdString(), testing::EndsWith(" inch"));
  Type(kDevice, kA, "3");
  EXPECT_EQ(page().Fault(), "");
  EXPECT_EQ(TextAt(kDevice, kA), "3 inch");
  EXPECT_THAT(File(), HasSubstr("76.200000"));
  Type(kDevice, DeviceModel::kFirstFigure, "1..6");
  EXPECT_EQ(TextAt(kDevice, DeviceModel::kFirstFigure), "1..6 inch");
  EXPECT_THAT(ReadBytes(folder / "lathe" / "clampdevice.json"), HasSubstr("152.4"));
  Search("chuck A=3");
  EXPECT_TRUE(WaitForRows(1));
  ClickButton("Undo the Last Edit");
  ClickButton("Undo the Last Edit");
  EXPECT_THAT(File(), testing::Not(HasSubstr("76.200000")));
}

/// The catalogue of a store on a server.
class CatalogueOnAServer : public CatalogueOfTheWindow {
 protected:
  void SetUp() override {
    if (ServerText().empty()) GTEST_SKIP() << kNoServer;
    const auto server = vdm::PostgresConnection::Open(ServerText());
    ASSERT_TRUE(server);
    const std::string database = "window_" + std::to_string(getpid());
    ASSERT_TRUE((*server)->Run({{"CREATE DATABASE " + database}}));
    CatalogueOfTheWindow::SetUp();
    actions()[Command::kCatalogue]->trigger();
    const auto ini = folder / "lathe" / "bench.ini";
    WriteBytes(ini, ReadBytes(ini) + "\n[store]\nengine=" + ServerText() + " dbname=" + database + "\n");
    ASSERT_TRUE(window->projectCommands().Open(folder / "lathe"));
    actions()[Command::kCatalogue]->trigger();
    ASSERT_TRUE(page().isVisible());
  }

  /// Runs `vanzet catalogue` in a program of its own, while the window lives.
  void Catalogue(const QStringList& words) {
    QProcess program;
    program.setWorkingDirectory(QString::fromStdString(folder.path().string()));
    program.start(VANZET_BINARY_DIR "/bin/vanzet", QStringList{"catalogue"} + words);
    ASSERT_TRUE(QTest::qWaitFor([&] { return program.state() == QProcess::NotRunning; }, 60'000));
    EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
  }
};

TEST_F(CatalogueOnAServer, ShowsWhatOthersChangeThere) {
  Type(kDevice, kA, "123");
  EXPECT_EQ(page().Fault(), "");
  Catalogue({"set", "lathe", kDevice, "A=124"});
  EXPECT_TRUE(QTest::qWaitFor([&] { return TextAt(kDevice, kA) == "124 mm"; }));
  ClickButton("Undo the Last Edit");
  EXPECT_THAT(page().Fault().toStdString(), HasSubstr("was changed by others since"));
  Catalogue({"remove", "lathe", kOther});
  EXPECT_TRUE(QTest::qWaitFor([&] { return !model().RowOf(kOther); }));
}

}  // namespace
}  // namespace vanzet::test
