#include "window/commands/dialog_place.h"

#include <QScreen>

#include "window_fixture.h"

namespace vanzet::test {
namespace {

TEST(DialogPlaces, AreBesideTheWindow) {
  const QRect screen(0, 0, 1920, 1080);
  const auto right = window::PlaceBeside(screen, {0, 40, 900, 900}, {980, 740}, 640);
  EXPECT_EQ(right.window, QRect(0, 40, 900, 900));
  EXPECT_EQ(right.dialog, QRect(900, 40, 980, 740));
  const auto left = window::PlaceBeside(screen, {1020, 40, 900, 900}, {980, 740}, 640);
  EXPECT_EQ(left.window, QRect(1020, 40, 900, 900));
  EXPECT_EQ(left.dialog.right(), 1019);
}

TEST(DialogPlaces, MakeTheWindowNarrowerWhereTheScreenNeedsIt) {
  const auto places = window::PlaceBeside({0, 0, 1920, 1080}, {260, 40, 1400, 900}, {1180, 740}, 640);
  EXPECT_EQ(places.window, QRect(0, 40, 740, 900));
  EXPECT_EQ(places.dialog, QRect(740, 40, 1180, 740));
}

TEST(DialogPlaces, OverlapOnASmallScreenByWhatIsMissing) {
  const auto places = window::PlaceBeside({0, 0, 1280, 800}, {0, 0, 1280, 800}, {1180, 740}, 640);
  EXPECT_EQ(places.window, QRect(0, 0, 640, 800));
  EXPECT_EQ(places.dialog, QRect(100, 0, 1180, 740));
  EXPECT_EQ(places.window.intersected(places.dialog).width(), 640 + 1180 - 1280);
}

/// A screen wider than the window and narrower than both windows.
class DialogOnAScreen : public WindowTest {
 protected:
  DialogOnAScreen() : place(main, memory, nullptr) {
    dialog.setProperty("page", QVariantMap());
    const QRect screen = main.screen()->availableGeometry();
    main.setGeometry(QRect(screen.topLeft() + QPoint(10, 10), screen.size() - QSize(20, 100)));
    dialog.resize(screen.width() - 100, 200);
  }
  QWidget main, dialog;
  window::WindowMemory memory;
  window::DialogPlace place;
};

TEST_F(DialogOnAScreen, GivesTheWindowItsSizeBackWhereverItStandsThen) {
  main.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&main));
  const QRect before = main.geometry();
  place.Begin();
  dialog.show();
  ASSERT_LT(main.width(), before.width());
  main.move(main.pos() + QPoint(3, 24));
  place.End();
  EXPECT_EQ(main.geometry(), before);
}

TEST_F(DialogOnAScreen, LeavesTheSizeThatTheUserGaveTheWindow) {
  main.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&main));
  place.Begin();
  dialog.show();
  const QSize chosen(main.width() + 50, main.height() - 50);
  main.resize(chosen);
  place.End();
  EXPECT_EQ(main.size(), chosen);
}

TEST_F(DialogOnAScreen, MakesRoomAsSoonAsTheWindowIsShown) {
  const int width = main.width();
  place.Begin();
  dialog.show();
  EXPECT_EQ(main.width(), width) << "the screen still has to place it";
  main.show();
  EXPECT_TRUE(QTest::qWaitFor([&] { return main.width() < width; }));
  place.End();
  EXPECT_EQ(main.width(), width);
}

}  // namespace
}  // namespace vanzet::test
