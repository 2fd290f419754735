#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <csignal>
#include <cstdlib>

#include "modeller/mesh.h"
#include "support/places.h"
#include "support/vdm_values.h"
#include "window/commands/reading_bar.h"
#include "window_fixture.h"

namespace vanzet::test {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

/// A project whose billet is a solid, read by a program that stops at 42 per cent until it may go on.
class Reading : public WindowTest {
 protected:
  Reading() {
    OpenSample();
    fs::copy(VANZET_SOURCE_DIR "/examples/bodies/casting.step", Solid());
    Play("select 21\npress 2018\npress 2015\n",
         {[this] { emit choice().list().itemActivated(choice().list().item(0)); }});
    const fs::path program = folder / "slow-exchange";
    WriteBytes(program, "#!/bin/sh\ncd '" + folder.path().string() +
                            "'\necho $$ >process\necho progress 0.42\nuntil [ -e go ]; do sleep 0.02; done\n"
                            "exec '" VANZET_BINARY_DIR "/bin/vanzet-exchange' \"$@\"\n");
    fs::permissions(program, fs::perms::owner_all);
    setenv("VANZET_EXCHANGE", program.c_str(), 1);
    Restart();
  }
  ~Reading() override { unsetenv("VANZET_EXCHANGE"); }

  fs::path Solid() const { return folder / "lathe/bodies/casting.step"; }
  void GoOn() { WriteBytes(folder / "go", ""); }
  window::ReadingBar& bar() { return Part<window::ReadingBar>(); }
  int Percent() { return bar().findChild<QProgressBar*>()->value(); }
  bool ShowsTheBillet() { return equipment().BodyNames() == QStringList("main billet"); }
};

TEST_F(Reading, ShowsItsPercentageWhileTheWindowGoesOn) {
  ASSERT_TRUE(window->projectCommands().Open(folder / "lathe"));
  ASSERT_TRUE(QTest::qWaitFor([this] { return Percent() == 42; }));
  EXPECT_TRUE(bar().isVisible());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  QTest::keyClick(window.get(), Qt::Key_F8);
  EXPECT_FALSE(drawing().isVisible());
  EXPECT_TRUE(equipment().BodyNames().isEmpty());
  EXPECT_EQ(equipment().hint(), "Reading a solid...") << "the spindle has equipment";
  EXPECT_EQ(notice().Message(), "");
  const auto exported = exports().WriteBodies(modeller::ExportFormat::kStl, folder / "out");
  ASSERT_FALSE(exported);
  EXPECT_THAT(exported.fault().text, HasSubstr("still being read"));
  GoOn();
  EXPECT_TRUE(QTest::qWaitFor([this] { return ShowsTheBillet() && !bar().isVisible(); }));
  EXPECT_TRUE(exports().WriteBodies(modeller::ExportFormat::kStl, folder / "out"));
}

TEST_F(Reading, SaysThatAStepTakesLongWhereItsPercentageStays) {
  ASSERT_TRUE(window->projectCommands().Open(folder / "lathe"));
  ASSERT_TRUE(QTest::qWaitFor([this] { return Percent() == 42; }));
  const auto* const bar = this->bar().findChild<QProgressBar*>();
  EXPECT_EQ(bar->maximum(), 100);
  ASSERT_TRUE(QTest::qWaitFor([&] { return bar->maximum() == 0; })) << "it claims no percentage";
  EXPECT_EQ(bar->accessibleName(), "Reading casting: 42 % is done, and the next step takes long");
  GoOn();
  EXPECT_TRUE(QTest::qWaitFor([this] { return ShowsTheBillet() && !this->bar().isVisible(); }));
}

TEST_F(Reading, IsCancelledByItsButtonAndDoneAgainByF5) {
  ASSERT_TRUE(window->projectCommands().Open(folder / "lathe"));
  ASSERT_TRUE(QTest::qWaitFor([this] { return Percent() == 42; }));
  const pid_t process = std::stoi(ReadBytes(folder / "process"));
  EXPECT_EQ(kill(process, 0), 0);
  QTest::mouseClick(bar().findChild<QPushButton*>(), Qt::LeftButton);
  EXPECT_TRUE(QTest::qWaitFor([this] { return !bar().isVisible(); }));
  EXPECT_NE(kill(process, 0), 0) << "the process is left";
  EXPECT_EQ(notice().Message(), "") << "no fault: the user wanted it";
  EXPECT_FALSE(ShowsTheBillet());
  GoOn();
  QTest::keyClick(window.get(), Qt::Key_F5);
  EXPECT_TRUE(QTest::qWaitFor([this] { return ShowsTheBillet(); }));
}

TEST_F(Reading, EndsWithTheWindow) {
  ASSERT_TRUE(window->projectCommands().Open(folder / "lathe"));
  ASSERT_TRUE(QTest::qWaitFor([this] { return Percent() == 42; }));
  const pid_t process = std::stoi(ReadBytes(folder / "process"));
  EXPECT_TRUE(window->close());
  window.reset();
  EXPECT_NE(kill(process, 0), 0);
}

TEST_F(Reading, OfABrokenFileSaysSo) {
  WriteBytes(Solid(), "no body at all");
  GoOn();
  ASSERT_TRUE(window->projectCommands().Open(folder / "lathe"));
  EXPECT_TRUE(QTest::qWaitFor([this] { return !notice().Message().isEmpty(); }));
  EXPECT_THAT(notice().Message().toStdString(),
              testing::AllOf(HasSubstr("casting.step"), HasSubstr("not a readable STEP file")));
  EXPECT_FALSE(bar().isVisible());
}

TEST_F(Reading, GivesACoarseBodyBeforeTheFineOne) {
  GoOn();
  window::BodyReader reader;
  const auto find = [&] { return reader.Find(Solid().parent_path(), "casting"); };
  std::vector<std::size_t> facets;
  QObject::connect(&reader, &window::BodyReader::Arrived, &reader,
                   [&] { facets.push_back(modeller::MeshOf(*find(), {})->triangles.size()); });
  EXPECT_EQ(find().fault().kind, FaultKind::kBusy);
  ASSERT_TRUE(QTest::qWaitFor([&] { return !reader.IsReading(); }));
  ASSERT_EQ(facets.size(), 2U);
  EXPECT_LT(facets[0], facets[1]);
}

TEST_F(Reading, HappensOnceAsLongAsTheFileStays) {
  GoOn();
  window::BodyReader reader;
  QSignalSpy ended(&reader, &window::BodyReader::Ended);
  const auto find = [&] { return reader.Find(Solid().parent_path(), "casting"); };
  EXPECT_FALSE(find());
  ASSERT_TRUE(QTest::qWaitFor([&] { return !reader.IsReading(); }));
  EXPECT_TRUE(find());
  EXPECT_FALSE(reader.IsReading());
  fs::last_write_time(Solid(), fs::last_write_time(Solid()) + std::chrono::seconds(2));
  EXPECT_FALSE(find());
  EXPECT_TRUE(reader.IsReading());
  ASSERT_TRUE(QTest::qWaitFor([&] { return !reader.IsReading(); }));
  EXPECT_EQ(ended.count(), 2);
}

}  // namespace
}  // namespace vanzet::test
