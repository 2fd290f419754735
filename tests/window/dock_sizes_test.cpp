#include <QDockWidget>
#include <QWindow>

#include "window_fixture.h"

namespace vanzet::test {
namespace {

class DocksOfAWindow : public WindowTest {
 protected:
  void Resize(int width, int height) {
    window->resize(width, height);
    QTest::qWait(50);
  }
  /// The places of the window where the borders of a dock are dragged.
  QPoint RightOf(const QDockWidget& dock) { return dock.geometry().topRight() + QPoint(2, 100); }
  QPoint Above(const QDockWidget& dock) { return dock.geometry().topLeft() + QPoint(200, -3); }
  void Drag(const QPoint& from, const QPoint& by) {
    QWindow* const handle = window->windowHandle();
    QTest::mouseMove(handle, from);
    QTest::mousePress(handle, Qt::LeftButton, Qt::NoModifier, from);
    for (int step = 1; step <= 4; ++step) {
      QTest::mouseMove(handle, from + by * step / 4);
      QTest::qWait(20);
    }
    QTest::mouseRelease(handle, Qt::LeftButton, Qt::NoModifier, from + by);
    QTest::qWait(50);
  }
  int Width() { return definition().width(); }
  int Height() { return messages().height(); }
  /// The sizes come back some events after those of the window.
  void ExpectSizes(int width, int height) {
    const auto isBack = [&] { return std::abs(Width() - width) <= 3 && std::abs(Height() - height) <= 3; };
    EXPECT_TRUE(QTest::qWaitFor(isBack))
        << Width() << " x " << Height() << ", not " << width << " x " << height;
  }
};

TEST_F(DocksOfAWindow, BeginWithRoomForNamesAndValues) {
  OpenSample(true);
  QTest::qWait(50);
  EXPECT_NEAR(Width(), 370, 20);
}

TEST_F(DocksOfAWindow, GetTheirSizesBackWhenAWindowThatWasSmallGrows) {
  OpenSample(true);
  Resize(1400, 900);
  Drag(RightOf(definition()), {60, 0});
  Drag(Above(messages()), {0, -70});
  const int width = Width(), height = Height();
  ASSERT_NEAR(width, 430, 25);
  Resize(640, 420);
  EXPECT_LT(Height(), height) << "the window is too low";
  Resize(1400, 900);
  ExpectSizes(width, height);
}

TEST_F(DocksOfAWindow, GetTheirSizesBackInTheNextWindow) {
  OpenSample(true);
  Resize(1400, 900);
  Drag(Above(messages()), {0, -90});
  const int width = Width(), height = Height();
  Resize(500, 400);
  ASSERT_LT(Height(), height) << "the window is too low";
  window->close();
  Restart();
  ASSERT_TRUE(window->projectCommands().Open(folder / "lathe"));
  Resize(1400, 900);
  ExpectSizes(width, height);
}

}  // namespace
}  // namespace vanzet::test
