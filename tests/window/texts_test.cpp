#include <QAbstractButton>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTreeWidget>
#include <set>

#include "support/catalogues.h"
#include "support/places.h"
#include "window/commands/boxes.h"
#include "window_fixture.h"

namespace vanzet::test {
namespace {

using window::Command;
using window::Text;

TEST(Texts, AreTranslatedIntoEveryLanguage) {
  std::set<std::string> texts;
  for (int i = 0; i < static_cast<int>(Text::kCount); ++i) texts.insert(EnglishOf(static_cast<Text>(i)));
  ExpectTranslated("window", texts);
}

TEST(Texts, HaveAMenuKeyInEveryLanguageOrInNone) {
  for (const auto& [code, translations] : Catalogues()) {
    for (const auto& [english, translation] : translations.Sections().at("window"))
      EXPECT_EQ((english.find('&') == std::string::npos), (translation.find('&') == std::string::npos))
          << english;
  }
}

class TranslatedWindow : public WindowTest {
 protected:
  void SetLanguage(const Language& language) {
    actions().ActionOf(language.code)->trigger();
    QCoreApplication::processEvents();
  }

  static constexpr const char* kShare = VANZET_SOURCE_DIR "/share";

  static std::unique_ptr<window::Texts> TextsIn(const Language& language) {
    auto texts = std::make_unique<window::Texts>(kShare);
    EXPECT_TRUE(texts->SetLanguage(language.code));
    return texts;
  }

  static std::vector<Language> Languages() { return AvailableLanguages(kShare); }

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

TEST_F(TranslatedWindow, ShowsTheOtherLanguageAtOnce) {
  OpenSample();
  actions().ActionOf("de")->trigger();
  EXPECT_EQ(window->windowTitle(), "lathe - vanzet-Werkbank");
  EXPECT_EQ(actions()[Command::kDefinition]->text(), "Spannmittel &definieren...");
  EXPECT_EQ(window->menuBar()->actions().front()->text(), "&Projekt");
  EXPECT_EQ(messages().windowTitle(), "Meldungen");
  EXPECT_EQ(definition().tree().topLevelItem(0)->text(0), "Spindel 1");
  actions().ActionOf("en")->trigger();
  EXPECT_EQ(definition().tree().topLevelItem(0)->text(0), "Spindle 1");
}

TEST_F(TranslatedWindow, HasTheToolkitsOwnTextsInItsLanguage) {
  actions().ActionOf("de")->trigger();
  EXPECT_EQ(QCoreApplication::translate("QFileDialog", "Look in:"), "Suchen in:");
  const auto tip = [this](const char* button) {
    return messages().findChild<QAbstractButton*>(button)->toolTip();
  };
  EXPECT_EQ(tip("qt_dockwidget_closebutton"), QString::fromUtf8("Schließen"));
  EXPECT_EQ(tip("qt_dockwidget_floatbutton"), "Abtrennen");
  actions().ActionOf("en")->trigger();
  EXPECT_EQ(QCoreApplication::translate("QFileDialog", "Look in:"), "Look in:");
}

TEST_F(TranslatedWindow, HasATextForEveryActionInEveryLanguage) {
  for (const Language& language : Languages()) {
    SetLanguage(language);
    const auto texts = TextsIn(language);
    for (const window::ActionRow& row : window::ActionRows())
      EXPECT_EQ(actions()[row.command]->text(), (*texts)(row.text));
  }
}

TEST_F(TranslatedWindow, HasOneKeyForEachEntryOfAMenu) {
  for (const Language& language : Languages()) {
    SetLanguage(language);
    ExpectKeysOf(window->menuBar()->actions(), "the bar");
    for (const QMenu* menu : window->findChildren<QMenu*>()) ExpectKeysOf(menu->actions(), menu->title());
  }
}

TEST_F(TranslatedWindow, HasEachShortcutOnce) {
  std::set<QString> keys;
  for (const window::ActionRow& row : window::ActionRows()) {
    const QString key = row.shortcut;
    EXPECT_TRUE(key.isEmpty() || keys.insert(key).second) << row.shortcut;
  }
}

TEST_F(TranslatedWindow, CutsNoTextOff) {
  OpenSample(true);
  for (const Language& language : Languages()) {
    SetLanguage(language);
    ExpectNothingIsCut(*window);
    const auto texts = TextsIn(language);
    window::NewProjectBox box(*texts, {"mill-turn"}, "/tmp", window.get());
    box.show();
    QCoreApplication::processEvents();
    ExpectNothingIsCut(box);
  }
}

TEST_F(TranslatedWindow, IsLightAndDark) {
  OpenSample(true);
  actions()[Command::kDark]->trigger();
  QCoreApplication::processEvents();
  EXPECT_LT(window->grab().toImage().pixelColor(5, 5).lightness(), 80);
  actions()[Command::kLight]->trigger();
  QCoreApplication::processEvents();
  EXPECT_GT(window->grab().toImage().pixelColor(5, 5).lightness(), 180);
}

}  // namespace
}  // namespace vanzet::test
