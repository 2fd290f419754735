#include <QTreeWidget>

#include <algorithm>

#include "support/catalogues.h"
#include "support/contrast.h"
#include "support/places.h"
#include "window/definition_words.h"
#include "window_fixture.h"

namespace vanzet::test {
namespace {

using window::Command;

class DefinitionTree : public WindowTest {
 protected:
  /// The value beside a label, of the first row with it.
  std::string Value(const QString& label) {
    const auto rows = definition().tree().findItems(label, Qt::MatchExactly | Qt::MatchRecursive);
    return rows.isEmpty() ? "no row" : rows.front()->text(1).toStdString();
  }
  void SetUnit(const std::string& unit) {
    const auto settings = folder / "lathe/bench.ini";
    WriteBytes(settings, ReadBytes(settings) + "\n[project]\nunit = " + unit + "\n");
    window->equipmentCommands().Refresh();
  }
  static QTreeWidgetItem* BodyIn(QTreeWidget& tree, const QString& name) {
    return tree.findItems(name, Qt::MatchExactly).value(0);
  }
};

TEST_F(DefinitionTree, HasDevicesByNameAndTheirValues) {
  OpenSample(true);
  EXPECT_EQ(Value("Chuck"), "Chuck 160");
  EXPECT_EQ(Value("Collet"), "Collet D42");
  EXPECT_EQ(Value("Billet"), "cylinder");
  EXPECT_EQ(Value("Outer diameter"), "42 mm");
  EXPECT_EQ(Value("Clamping out"), "main 60 mm, sub 40 mm");
}

TEST_F(DefinitionTree, HasLengthsInTheUnitOfTheProject) {
  OpenSample(true);
  SetUnit("inch");
  EXPECT_EQ(Value("Outer diameter"), "1.6535 inch");
}

TEST_F(DefinitionTree, IsInTheLanguageOfTheWindow) {
  OpenSample(true);
  actions().ActionOf("de")->trigger();
  EXPECT_EQ(Value("Spannfutter"), "Chuck 160");
  EXPECT_EQ(Value("Außendurchmesser"), "42 mm");
  EXPECT_EQ(definition().tree().topLevelItem(0)->text(0), "Spindel 1");
}

TEST_F(DefinitionTree, KeepsTheStoredRecordsBelow) {
  OpenSample(true);
  const QTreeWidgetItem* const chuck = Records(0)->child(1);
  EXPECT_EQ(chuck->child(1)->child(0)->text(1), "Chuck 160");
  EXPECT_FALSE(Records(0)->isExpanded());
}

TEST_F(DefinitionTree, HasOperationsAndBodiesInTheLanguageOfTheWindow) {
  OpenSample(true);
  EXPECT_EQ(Records(0)->child(4)->text(0), "4  Steady rest");
  EXPECT_EQ(Records(0)->child(4)->toolTip(0), "Luenette");
  actions().ActionOf("de")->trigger();
  EXPECT_EQ(Records(0)->child(4)->text(0), QString::fromUtf8("4  Lünette"));
  EXPECT_EQ(Records(0)->child(6)->text(0), "6  3D-Text der Backe, Hauptspindel");
  QTreeWidget& list = Part<window::BodyDock>().tree();
  EXPECT_NE(BodyIn(list, "Spannfutter, Hauptspindel"), nullptr);
  EXPECT_NE(BodyIn(list, "Backe 2, Hauptspindel"), nullptr);
  ASSERT_NE(BodyIn(list, "Spannzange, Gegenspindel"), nullptr);
  BodyIn(list, "Spannfutter, Hauptspindel")->setCheckState(0, Qt::Unchecked);
  actions().ActionOf("en")->trigger();
  ASSERT_NE(BodyIn(list, "main chuck"), nullptr);
  EXPECT_EQ(BodyIn(list, "main chuck")->checkState(0), Qt::Unchecked) << "the choice is the body's";
}

TEST_F(DefinitionTree, HasATextForEveryOperation) {
  OpenSample(true);
  actions().ActionOf("de")->trigger();
  const auto translations = LoadTranslations(VANZET_SOURCE_DIR "/share", "de");
  ASSERT_TRUE(translations);
  const auto& texts = translations->Sections().at(window::kDefinitionSection);
  ASSERT_EQ(Records(0)->childCount(), 18);
  for (int i = 0; i < 18; ++i) {
    const QString shown = Records(0)->child(i)->text(0).section("  ", 1);
    EXPECT_TRUE(std::ranges::any_of(texts, [&](const auto& row) { return shown == row.second.c_str(); }))
        << shown.toStdString();
  }
}

TEST(DefinitionWords, NameBodiesAndLeaveOtherNames) {
  const auto german = LoadTranslations(VANZET_SOURCE_DIR "/share", "de");
  ASSERT_TRUE(german);
  EXPECT_EQ(window::BodyText(*german, "sub face driver, not stored"),
            "Stirnmitnehmer, Gegenspindel, nicht gespeichert");
  EXPECT_EQ(window::BodyText(*german, "center"), "Spitze");
  EXPECT_EQ(window::BodyText(*german, "main vice"), "vice, Hauptspindel");
  EXPECT_EQ(window::BodyText({}, "main jaw 1, not stored"), "main jaw 1, not stored");
  EXPECT_EQ(window::OperationText(*german, "made by hand"), "made by hand");
}

TEST(DefinitionWords, AreTranslatedIntoEveryLanguage) {
  ExpectTranslated(window::kDefinitionSection, MarkedTexts("bench/window"));
}

TEST_F(DefinitionTree, HasBodiesThatCanBeHiddenAndSeenThrough) {
  OpenSample(true);
  QTreeWidget& list = Part<window::BodyDock>().tree();
  ASSERT_NE(BodyIn(list, "main chuck"), nullptr);
  const QImage all = equipment().grab().toImage();
  BodyIn(list, "main chuck")->setCheckState(0, Qt::Unchecked);
  const QImage without = equipment().grab().toImage();
  EXPECT_NE(without, all);
  window->equipmentCommands().Refresh();
  EXPECT_EQ(BodyIn(list, "main chuck")->checkState(0), Qt::Unchecked) << "the choice is kept";
  BodyIn(list, "main chuck")->setCheckState(0, Qt::Checked);
  BodyIn(list, "main chuck")->setCheckState(1, Qt::Checked);
  EXPECT_NE(equipment().grab().toImage(), all);
  EXPECT_NE(equipment().grab().toImage(), without);
}

TEST_F(DefinitionTree, HasBodiesWithBoxesThatAreSeenInLightAndDark) {
  OpenSample(true);
  QTreeWidget& list = Part<window::BodyDock>().tree();
  for (const Command appearance : {Command::kDark, Command::kLight}) {
    actions()[appearance]->trigger();
    QTreeWidgetItem* const chuck = BodyIn(list, "main chuck");
    chuck->setCheckState(0, Qt::Unchecked);
    const QRect row = list.visualItemRect(chuck);
    const QImage image = list.viewport()->grab(QRect(row.topLeft(), QSize(24, row.height()))).toImage();
    const QColor ground = list.palette().color(QPalette::Base);
    double most = 1;
    for (int x = 0; x < image.width(); ++x)
      most = std::max(most, Contrast(image.pixelColor(x, image.height() / 2), ground));
    EXPECT_GE(most, 3) << "the edge of the box, dark: " << (appearance == Command::kDark);
  }
  actions()[Command::kLight]->trigger();
}

TEST_F(DefinitionTree, HasRoomForValues) {
  OpenSample(true);
  const QTreeWidget& tree = definition().tree();
  EXPECT_EQ(tree.headerItem()->text(0), "Name");
  EXPECT_EQ(tree.headerItem()->text(1), "Value");
  EXPECT_GE(tree.columnWidth(1), tree.viewport()->width() * 2 / 5);
}

}  // namespace
}  // namespace vanzet::test
