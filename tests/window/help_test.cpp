#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QToolButton>

#include "window_fixture.h"

namespace vanzet::test {
namespace {

class Help : public WindowTest {
 protected:
  void Open(const char* page, const QString& heading = {}) {
    ASSERT_TRUE(help().Open(page, heading));
    QCoreApplication::processEvents();
  }
  window::HelpWindow& help() { return Part<window::HelpWindow>(); }
  QTextBrowser& browser() { return *help().findChild<QTextBrowser*>(); }
  QToolButton& Button(const QString& text) {
    for (auto* const button : help().findChildren<QToolButton*>()) {
      if (button->text() == text) return *button;
    }
    throw std::runtime_error("no button");
  }
};

TEST_F(Help, BeginsAtTheHeadingThatIsAskedFor) {
  Open("guide/pages.md");
  EXPECT_EQ(browser().verticalScrollBar()->value(), 0);
  Open("guide/pages.md", "Billet cylindrical");
  EXPECT_EQ(browser().textCursor().block().text(), "Billet cylindrical");
  EXPECT_GT(browser().verticalScrollBar()->value(), 0);
}

TEST_F(Help, HasAWayBackAndTheListOfPages) {
  Open("window.md");
  EXPECT_FALSE(Button("Back").isEnabled());
  QTest::mouseClick(&Button("Contents"), Qt::LeftButton);
  EXPECT_TRUE(browser().source().path().endsWith("guide/README.md"));
  QTest::mouseClick(&Button("Back"), Qt::LeftButton);
  EXPECT_TRUE(browser().source().path().endsWith("window.md"));
}

TEST_F(Help, FindsWordsInThePage) {
  Open("guide/pages.md");
  auto* const search = help().findChild<QLineEdit*>();
  QTest::keyClicks(search, "face driver");
  QTest::keyClick(search, Qt::Key_Return);
  EXPECT_EQ(browser().textCursor().selectedText().toLower(), "face driver");
}

TEST_F(Help, IsClosedByEscapeAndStaysOnTheScreen) {
  Open("window.md");
  const QRect screen = help().screen()->availableGeometry(), place = help().frameGeometry();
  EXPECT_TRUE(screen.contains(place)) << place.x() << " " << place.y() << " " << place.width() << " "
                                      << place.height() << " on " << screen.width() << " " << screen.height();
  help().activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&help()));
  QTest::keyClick(&help(), Qt::Key_Escape);
  EXPECT_FALSE(help().isVisible());
}

TEST_F(Help, HasPicturesThatFitItsWidth) {
  Open("window.md");
  EXPECT_FALSE(browser().horizontalScrollBar()->isVisible());
}

}  // namespace
}  // namespace vanzet::test
