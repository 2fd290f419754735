#include <QAbstractButton>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTreeWidget>
#include <set>

#include "window/new_project_box.h"
#include "window_fixture.h"

namespace vanzet::test {
namespace {

using window::Command;
using window::Language;
using window::Text;

std::multiset<QString> PlacesOf(const QString& text) {
  std::multiset<QString> places;
  for (const char* place : {"%1", "%2", "..."}) {
    if (text.contains(place)) places.insert(place);
  }
  return places;
}

TEST(Texts, AreThereInBothLanguagesWithTheSamePlaces) {
  for (int i = 0; i < static_cast<int>(Text::kCount); ++i) {
    const QString english = TextIn(Language::kEnglish, static_cast<Text>(i));
    const QString german = TextIn(Language::kGerman, static_cast<Text>(i));
    EXPECT_FALSE(english.isEmpty()) << i;
    EXPECT_FALSE(german.isEmpty()) << i;
    EXPECT_EQ(PlacesOf(english), PlacesOf(german)) << english.toStdString();
    EXPECT_EQ(english.contains('&'), german.contains('&')) << english.toStdString();
  }
}

class SpokenWindow : public WindowTest {
 protected:
  void Speak(Language language) {
    window->actions()[language == Language::kGerman ? Command::kGerman : Command::kEnglish]->trigger();
    QCoreApplication::processEvents();
  }

  /// The texts of a menu have keys of their own.
  static void ExpectKeysOf(const QList<QAction*>& actions, const QString& where) {
    std::set<QChar> keys;
    for (const QAction* action : actions) {
      const qsizetype at = action->text().indexOf('&');
      if (at < 0) continue;
      const QChar key = action->text()[at + 1].toLower();
      EXPECT_TRUE(keys.insert(key).second) << where.toStdString() << ": " << action->text().toStdString();
    }
  }

  static void ExpectNothingIsCut(const QWidget& top) {
    for (const QWidget* widget : top.findChildren<QWidget*>()) {
      if (!widget->isVisible()) continue;
      const auto* const label = qobject_cast<const QLabel*>(widget);
      const auto* const button = qobject_cast<const QAbstractButton*>(widget);
      const QString text = label != nullptr ? label->text() : button != nullptr ? button->text() : QString();
      if (text.isEmpty() || (label != nullptr && label->wordWrap())) continue;
      EXPECT_GE(widget->width(), widget->sizeHint().width()) << text.toStdString();
      EXPECT_GE(widget->height(), widget->fontMetrics().height()) << text.toStdString();
    }
  }
};

TEST_F(SpokenWindow, SpeaksTheOtherLanguageAtOnce) {
  OpenSample();
  Speak(Language::kGerman);
  EXPECT_EQ(window->windowTitle(), "lathe - vanzet-Werkbank");
  EXPECT_EQ(window->actions()[Command::kDefinition]->text(), "Spannmittel &definieren...");
  EXPECT_EQ(window->menuBar()->actions().front()->text(), "&Projekt");
  EXPECT_EQ(window->messages().windowTitle(), "Meldungen");
  EXPECT_EQ(window->definition().tree().topLevelItem(0)->text(0), "Spindelspur 0");
  Speak(Language::kEnglish);
  EXPECT_EQ(window->definition().tree().topLevelItem(0)->text(0), "Spur 0");
}

TEST_F(SpokenWindow, HasATextForEveryActionInBothLanguages) {
  for (const Language language : {Language::kEnglish, Language::kGerman}) {
    Speak(language);
    for (const window::ActionRow& row : window::ActionRows()) {
      EXPECT_EQ(window->actions()[row.command]->text(), TextIn(language, row.text));
    }
  }
}

TEST_F(SpokenWindow, HasOneKeyForEachEntryOfAMenu) {
  for (const Language language : {Language::kEnglish, Language::kGerman}) {
    Speak(language);
    ExpectKeysOf(window->menuBar()->actions(), "the bar");
    for (const QMenu* menu : window->findChildren<QMenu*>()) ExpectKeysOf(menu->actions(), menu->title());
  }
}

TEST_F(SpokenWindow, HasEachShortcutOnce) {
  std::set<QString> keys;
  for (const window::ActionRow& row : window::ActionRows()) {
    const QString key = row.shortcut;
    EXPECT_TRUE(key.isEmpty() || keys.insert(key).second) << row.shortcut;
  }
}

TEST_F(SpokenWindow, CutsNoTextOff) {
  OpenSample(true);
  for (const Language language : {Language::kEnglish, Language::kGerman}) {
    Speak(language);
    ExpectNothingIsCut(*window);
    window::NewProjectBox box(window->words(), {"mill-turn"}, "/tmp", window.get());
    box.show();
    QCoreApplication::processEvents();
    ExpectNothingIsCut(box);
  }
}

TEST_F(SpokenWindow, WearsLightAndDark) {
  OpenSample(true);
  window->actions()[Command::kDark]->trigger();
  QCoreApplication::processEvents();
  EXPECT_LT(window->grab().toImage().pixelColor(5, 5).lightness(), 80);
  window->actions()[Command::kLight]->trigger();
  QCoreApplication::processEvents();
  EXPECT_GT(window->grab().toImage().pixelColor(5, 5).lightness(), 180);
}

}  // namespace
}  // namespace vanzet::test
