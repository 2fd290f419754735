#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTextBrowser>
#include <QToolButton>
#include <QTreeWidget>
#include <array>
#include <filesystem>

#include "check/finding.h"
#include "support/places.h"
#include "window/commands/dialog_page.h"
#include "window_fixture.h"

namespace vanzet::test {
namespace {

using window::Command;

/// Values of the cylindric page by which the bar does not pass through the bore of the chuck, and those that
/// mend it.
constexpr const char *kTooThick = "select 19\nset 2022 80\npress 2016\npress 1\n",
                     *kThinner = "select 19\nset 2022 42\npress 2016\npress 1\n";

/// A clamping out with which the bar reaches too far out of the jaws.
constexpr const char* kFarOut =
    "select 19\nset 2022 42\npress 2016\nselect 34\nset 2203 150\npress 2015\npress 1\n";

class Checks : public WindowTest {
 protected:
  window::CheckDock& dock() { return Part<window::CheckDock>(); }
  QTreeWidget& list() { return dock().tree(); }
  QToolButton& count() { return *window->statusBar()->findChild<QToolButton*>("checkCount"); }
  QPushButton& button(const char* name) { return *dock().findChild<QPushButton*>(name); }

  /// The number of the row with a rule; below 0: it is not listed.
  int RowOf(const QString& rule) {
    for (int row = 0; row < list().topLevelItemCount(); ++row) {
      if (list().topLevelItem(row)->text(1) == rule) return row;
    }
    return -1;
  }
  bool Lists(const QString& rule) {
    return QTest::qWaitFor([&] { return RowOf(rule) >= 0; }, 20'000);
  }
  void OpenTooThick() {
    OpenSample(true);
    Play(kTooThick);
    ASSERT_TRUE(Lists("EQ-203"));
  }
  /// Whether the ring is painted: red at its left and its right.
  static bool HasRing(QWidget& view, const QPointF& place) {
    const QImage picture = view.grab().toImage();
    const double scale = picture.devicePixelRatio();
    const auto isRed = [&](double x) {
      for (const int off : {-1, 0, 1}) {
        const QPoint at = (QPointF(place.x() + x + off, place.y()) * scale).toPoint();
        const QColor colour = picture.rect().contains(at) ? picture.pixelColor(at) : QColor();
        if (colour.red() > 150 && colour.green() < 110 && colour.blue() < 120) return true;
      }
      return false;
    };
    return isRed(-16) && isRed(16);
  }
  static void CloseDialog() {
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
      auto* const dialog = qobject_cast<QDialog*>(widget);
      if (dialog != nullptr && dialog->isVisible()) return static_cast<void>(dialog->close());
    }
  }
  void ClickOn(const QString& rule) {
    window->show();
    dock().raise();
    QTreeWidgetItem* const row = list().topLevelItem(RowOf(rule));
    list().scrollToItem(row);
    QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::NoModifier, list().visualItemRect(row).center());
  }
};

TEST_F(Checks, ListWhatIsFoundAfterEachStoredStep) {
  OpenTooThick();
  const QTreeWidgetItem* const row = list().topLevelItem(RowOf("EQ-203"));
  EXPECT_EQ(row->text(0), "error");
  EXPECT_EQ(row->text(2), "Spindle 1, main spindle");
  EXPECT_TRUE(row->text(3).startsWith("The clamp device and the billet cut ")) << row->text(3).toStdString();
  EXPECT_FALSE(row->icon(0).isNull());
  EXPECT_TRUE(count().text().contains("Errors: 1")) << count().text().toStdString();
  EXPECT_FALSE(count().isHidden());
  Play(kThinner);
  EXPECT_TRUE(QTest::qWaitFor([&] { return RowOf("EQ-203") < 0; }, 20'000));
  EXPECT_TRUE(QTest::qWaitFor([&] { return !count().text().contains("Errors: 1"); }));
}

TEST_F(Checks, AreInFrontOfTheMessagesWhenSomethingIsFoundFirst) {
  Part<window::MessageDock>().raise();
  OpenTooThick();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !list().visibleRegion().isEmpty(); }, 20'000));
  Part<window::MessageDock>().raise();
  EXPECT_TRUE(QTest::qWaitFor([&] { return list().visibleRegion().isEmpty(); }));
  actions().ActionOf("de")->trigger();
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return list().topLevelItem(RowOf("EQ-203"))->text(0) == "Fehler"; }, 20'000));
  QTest::qWait(50);
  EXPECT_TRUE(list().visibleRegion().isEmpty()) << "a person who reads the messages is left there";
}

TEST_F(Checks, SpeakTheLanguageOfTheWindow) {
  OpenTooThick();
  actions().ActionOf("de")->trigger();
  const auto text = [&] {
    const int row = RowOf("EQ-203");
    return row < 0 ? QString() : list().topLevelItem(row)->text(3);
  };
  EXPECT_TRUE(QTest::qWaitFor([&] { return text().contains("Rohteil"); }, 20'000)) << text().toStdString();
  EXPECT_EQ(dock().windowTitle(), "Prüfungen");
  EXPECT_EQ(list().topLevelItem(RowOf("EQ-203"))->text(0), "Fehler");
  EXPECT_EQ(list().topLevelItem(RowOf("EQ-203"))->text(2), "Spindel 1, Hauptspindel");
  EXPECT_TRUE(count().text().contains("Fehler: 1"));
}

TEST_F(Checks, PointOutTheClickedFindingInBothViews) {
  OpenTooThick();
  const double before = drawing().frame().scale();
  ClickOn("EQ-203");
  ASSERT_TRUE(drawing().pointedAt());
  const QPointF ring = drawing().frame().ToScreen(*drawing().pointedAt());
  EXPECT_TRUE(drawing().rect().contains(ring.toPoint()));
  EXPECT_GT(drawing().frame().scale(), before) << "nearer";
  EXPECT_EQ(equipment().pointedAt(), QStringList({"main chuck", "main billet"}));
  ASSERT_TRUE(equipment().PointedPlace());
  EXPECT_TRUE(equipment().rect().contains(equipment().PointedPlace()->toPoint()));
  EXPECT_TRUE(HasRing(equipment(), *equipment().PointedPlace()));
  EXPECT_TRUE(HasRing(drawing(), ring));
  Play(kThinner);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !drawing().pointedAt(); }, 20'000)) << "it is mended";
  EXPECT_TRUE(equipment().pointedAt().isEmpty());
  EXPECT_FALSE(equipment().PointedPlace());
}

TEST_F(Checks, KeepTheRingAtThePlaceWhileTheEquipmentIsTurned) {
  OpenTooThick();
  ClickOn("EQ-203");
  const QPointF before = *equipment().PointedPlace();
  equipment().LookFrom(scene::View::kTop);
  EXPECT_NE(*equipment().PointedPlace(), before);
  EXPECT_TRUE(HasRing(equipment(), *equipment().PointedPlace()));
}

// Work on both spindles.
constexpr const char* kBars =
    "select 19\nset 2022 42\nset 2023 50\npress 2016\n"
    "select 23\nset 2022 42\nset 2023 50\npress 2016\npress 1\n";
constexpr const char* kParts =
    "select 29\nset 2046 \"flange\"\npress 2015\nselect 32\nset 2046 \"flange\"\npress 2015\npress 1\n";

/// A finding of the main spindle and the same of the sub spindle, with the nodes and the controls of the
/// dialog that are meant.
struct PageCase {
  const char* rule;
  const char* script;  ///< stores what the page shows
  show::Part part;
  const char* mendedBy;
  std::array<int, 2> nodes, fields;

  friend void PrintTo(const PageCase& each, std::ostream* out) { *out << each.rule; }
};

using enum show::Part;

// clang-format off
const PageCase kPageCases[] = {
    {"EQ-101", "",     kJaw,        "",                { 4, 10}, {2124, 2124}},
    {"EQ-102", "",     kClamp,      "",                { 3,  9}, {2124, 2124}},
    {"EQ-103", "",     kJaw,        "",                { 4, 10}, {2124, 2124}},
    {"EQ-104", kParts, kFinishPart, "",                {29, 32}, {2046, 2046}},
    {"EQ-105", "",     kClamp,      "",                { 3,  9}, {2124, 2124}},
    {"EQ-201", kBars,  kNone,       "",                {19, 23}, {2022, 2022}},
    {"EQ-202", kBars,  kNone,       "",                {19, 23}, {2022, 2022}},
    {"EQ-203", kBars,  kNone,       "",                {19, 23}, {2022, 2022}},
    {"EQ-204", kParts, kNone,       "",                {29, 32}, {2046, 2046}},
    {"EQ-205", "",     kNone,       "origin",          {34, 34}, {2207, 2214}},
    {"EQ-206", "",     kCenter,     "",                {15, 15}, {2124, 2124}},
    {"EQ-301", kBars,  kNone,       "rear_allowance",  {19, 23}, {2025, 2025}},
    {"EQ-302", "",     kNone,       "",                {34, 34}, {2203, 2211}},
    {"EQ-303", "",     kNone,       "clamping_out",    {34, 34}, {2203, 2211}},
    {"EQ-304", "",     kNone,       "",                {34, 34}, {2207, 2214}},
    {"EQ-305", kBars,  kNone,       "bar_length",      {19, 23}, {2027,    0}},  // the main spindle's alone
    {"EQ-401", "",     kJaw,        "",                { 4, 10}, {2124, 2124}},
    {"EQ-402", "",     kClamp,      "speed",           { 3,  9}, {2124, 2124}},
};
// clang-format on

class ChecksOpen : public Checks, public testing::WithParamInterface<PageCase> {
 protected:
  /// The page with its field, as the dialog shows them once the keys are there.
  struct Opened {
    int node = 0, field = 0;
    bool isMarked = false;  ///< what is typed takes the place of the value
  };

  static int SelectedNode() {
    for (QWidget* const widget : QApplication::allWidgets()) {
      const auto* const tree = qobject_cast<QTreeWidget*>(widget);
      if (tree != nullptr && tree->isVisible() && tree->objectName() == "2158")
        return tree->currentItem() == nullptr ? 0 : tree->currentItem()->data(0, Qt::UserRole).toInt();
    }
    return 0;
  }

  static check::Where PlaceOf(const PageCase& each, bool isSub) {
    if (each.part == kCenter) return check::Where::kCenter;
    if (std::string_view("EQ-304") == each.rule) return check::Where::kDatum;
    return isSub ? check::Where::kSub : check::Where::kMain;
  }

  Opened OpenPageOf(const PageCase& each, bool isSub) {
    window::ReportedFinding finding = {.rule = each.rule, .where = PlaceOf(each, isSub), .text = "cuts"};
    finding.bodies = {isSub ? "sub billet" : "main billet"};
    finding.part = each.part;
    finding.mendedBy = each.mendedBy;
    dock().ShowFindings({finding});
    ClickOn(each.rule);
    Opened opened;
    int looks = 0;
    When([&] { return SelectedNode() == each.nodes[isSub ? 1 : 0] || ++looks > 200; },
         [&] {
           opened.node = SelectedNode();
           const QWidget* const focus = QApplication::focusWidget();
           opened.field = focus == nullptr ? 0 : focus->objectName().toInt();
           const auto* const edit = qobject_cast<const QLineEdit*>(focus);
           opened.isMarked = edit == nullptr || edit->selectedText() == edit->text();
           CloseDialog();
         });
    QTest::mouseClick(&button("openPage"), Qt::LeftButton);
    return opened;
  }
};
INSTANTIATE_TEST_SUITE_P(Pages, ChecksOpen, testing::ValuesIn(kPageCases),
                         [](const auto& each) { return std::string(each.param.rule).replace(2, 1, ""); });

TEST_P(ChecksOpen, ThePageOfTheValueWithTheKeysOnItsFieldOnBothSpindles) {
  OpenSample();
  std::filesystem::create_directories(folder / "lathe/bodies");
  std::filesystem::copy_file(VANZET_SOURCE_DIR "/examples/bodies/flange.step",
                             folder / "lathe/bodies/flange.step");
  if (GetParam().script[0] != '\0') Play(GetParam().script);
  for (const bool isSub : {false, true}) {
    const std::size_t side = isSub ? 1 : 0;
    const Opened opened = OpenPageOf(GetParam(), isSub);
    EXPECT_EQ(opened.node, GetParam().nodes[side]) << side;
    if (GetParam().fields[side] == 0) continue;
    EXPECT_EQ(opened.field, GetParam().fields[side]) << side;
    EXPECT_TRUE(opened.isMarked) << side;
  }
}

TEST(PagesOfFindings, HaveARowForEachRule) {
  for (const check::Rule& rule : check::Rules()) {
    EXPECT_TRUE(std::ranges::any_of(kPageCases, [&](const PageCase& each) { return each.rule == rule.id; }))
        << rule.id;
  }
}

TEST_F(Checks, OpenThePageOfAFindingOfTheCheckItself) {
  OpenSample(true);
  Play(kFarOut);
  ASSERT_TRUE(Lists("EQ-303"));
  ClickOn("EQ-303");
  QString page;
  int looks = 0;
  When([&] { return window::SelectedPage() == "Datum" || ++looks > 200; },
       [&] {
         page = window::SelectedPage();
         CloseDialog();
       });
  QTest::mouseClick(&button("openPage"), Qt::LeftButton);
  EXPECT_EQ(page, "Datum");
}

TEST_F(Checks, ExplainARule) {
  OpenTooThick();
  EXPECT_FALSE(button("openRule").isEnabled()) << "no finding is chosen";
  ClickOn("EQ-203");
  QTest::mouseClick(&button("openRule"), Qt::LeftButton);
  const QString text = Part<window::HelpWindow>().findChild<QTextBrowser*>()->toPlainText();
  EXPECT_TRUE(text.contains("EQ-203: A device cuts into the billet")) << text.left(200).toStdString();
}

TEST_F(Checks, AreReachedFromTheCount) {
  OpenTooThick();
  window->show();
  dock().hide();
  QTest::mouseClick(&count(), Qt::LeftButton);
  EXPECT_TRUE(dock().isVisible());
}

TEST_F(Checks, SayWhyAProjectCannotBeChecked) {
  OpenSample(true);
  WriteBytes(folder / "lathe/bench.ini", ReadBytes(folder / "lathe/bench.ini") + "[check]\nEQ-203=loud\n");
  actions()[Command::kRefresh]->trigger();
  const auto state = [&] { return dock().findChild<QLabel*>("checkState")->text(); };
  EXPECT_TRUE(QTest::qWaitFor([&] { return state().contains("not 'loud'"); }, 20'000))
      << state().toStdString();
  EXPECT_TRUE(count().isHidden());
}

}  // namespace
}  // namespace vanzet::test
