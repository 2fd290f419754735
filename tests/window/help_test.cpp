#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextTable>
#include <QToolButton>

#include "project/message_catalogue.h"
#include "support/places.h"
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
  /// The levels of all headings and the numbers of rows of all tables.
  std::vector<std::size_t> Headings() {
    std::vector<std::size_t> parts;
    for (QTextBlock block = browser().document()->begin(); block.isValid(); block = block.next()) {
      const int level = block.blockFormat().headingLevel();
      if (level > 0) parts.push_back(static_cast<std::size_t>(level));
    }
    for (const QTextFrame* const frame : browser().document()->rootFrame()->childFrames()) {
      const auto* const table = qobject_cast<const QTextTable*>(frame);
      if (table != nullptr) parts.push_back(100 + static_cast<std::size_t>(table->rows()));
    }
    return parts;
  }
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

TEST_F(Help, HasAHeadingForEveryPageOfTheDialogInItsLanguage) {
  for (const std::string language : {"en", "de"}) {
    actions().ActionOf(language)->trigger();
    const auto messages = project::ReadMessageCatalogue(
        ReadBytes(VANZET_SOURCE_DIR "/share/messages/" + language + ".txt"), language);
    ASSERT_TRUE(messages);
    // The entries of the tree that have a page.
    for (const int node : {705, 706, 707, 708, 709, 712, 713, 715, 717, 718, 719, 720, 1160, 1172, 1173}) {
      Open("guide/pages.md");
      Open("guide/pages.md", QString::fromStdString(messages->at(node)));
      EXPECT_GT(browser().textCursor().position(), 0) << language << ": " << messages->at(node);
    }
  }
}

TEST_F(Help, IsInTheLanguageOfTheWindowWhereThePageIs) {
  actions().ActionOf("de")->trigger();
  Open("guide/pages.md", "Rohteil zylindrisch");
  EXPECT_EQ(browser().textCursor().block().text(), "Rohteil zylindrisch");
  EXPECT_FALSE(browser().loadResource(QTextDocument::ImageResource, QUrl("../../dialog.png")).isNull());
  Open("window.md");
  EXPECT_TRUE(browser().toPlainText().startsWith("Das Fenster"));
  Open("shop.md");
  EXPECT_FALSE(browser().toPlainText().isEmpty()) << "in English";
}

TEST_F(Help, HasInGermanTheSamePartsAsInEnglish) {
  for (const char* page : {"window.md", "guide/pages.md"}) {
    actions().ActionOf("en")->trigger();
    Open(page);
    const auto english = Headings();
    actions().ActionOf("de")->trigger();
    Open(page);
    EXPECT_EQ(Headings(), english) << page;
  }
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
