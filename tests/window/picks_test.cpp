#include <QLabel>
#include <QLineEdit>
#include <QListWidget>

#include "support/places.h"
#include "window/views/previews.h"
#include "window/views/steps.h"
#include "window_fixture.h"

namespace vanzet::test {
namespace {

using testing::Contains;
using testing::HasSubstr;

/// Values of the cylindric page: 2022 the outer diameter, picked by 2005; 2023 the length, picked by 2006;
/// 2016 takes the values.
constexpr const char* kBar = "select 19\nset 2022 80\nset 2023 120\npress 2016\n";

class WindowPicks : public WindowTest {
 protected:
  std::string Hint() { return hint().findChild<QLabel*>()->text().toStdString(); }
  /// A figure above the billet, from x -50 to 0.
  void DrawAShape() {
    WriteBytes(folder / "lathe/drawing.txt",
               "drawing 1\nlayer black solid 0\nfigure Shape\nstroke black solid 0\nx-50 y60\nx0 y60\nek\n"
               "insert display 1 0 0 1 0 0\nend 4\n");
  }
  /// The latest value that the dialog has read of a variable.
  std::string Answer(const std::string& variable) {
    const std::string said = Messages(), begin = "< " + variable + " = ";
    const std::size_t at = said.rfind(begin);
    if (at == std::string::npos) return "0";
    return said.substr(at + begin.size(), said.find('\n', at) - at - begin.size());
  }
  void Escape() { QTest::keyClick(window.get(), Qt::Key_Escape); }
};

TEST_F(WindowPicks, OfAPositionAreThePlaceThatIsClicked) {
  OpenSample();
  std::string prompt;
  Play(std::string(kBar) + "press 2006\npress 2016\n", {[&] {
         prompt = Hint();
         EXPECT_TRUE(hint().isVisible());
         drawing().Fit();
         Click(drawing(), At(-70, 31));
       }});
  EXPECT_THAT(prompt, HasSubstr("Pick a position in the drawing"));
  EXPECT_FALSE(hint().isVisible());
  const std::string billet = Section(1, 3)[1];
  const double length = std::stod(billet.substr(billet.find(' ', 3)));
  EXPECT_NEAR(length, 70, 1) << billet;
}

TEST_F(WindowPicks, OfAPositionJumpToTheCornerBeside) {
  OpenSample();
  DrawAShape();
  Play(std::string(kBar) + "press 2005\npress 2016\n", {[&] {
         drawing().Fit();
         Click(drawing(), At(-50, 60) + QPoint(5, -4));
       }});
  // The drawing has radii; the dialog doubles what is picked.
  EXPECT_THAT(Section(1, 3)[1], HasSubstr("1 120.000000 120.000000"));
}

/// The decimals of a number as text.
std::size_t Decimals(const std::string& number) {
  const std::size_t point = number.find('.');
  return point == std::string::npos ? 0 : number.size() - point - 1;
}

TEST_F(WindowPicks, OfAPositionAreAsRoundAsAPixelIsWide) {
  OpenSample();
  Play(std::string(kBar) + "press 2006\n", {[&] {
         drawing().Fit();
         Click(drawing(), At(-70, 31));
       }});
  EXPECT_LE(Decimals(Answer("w_return")), 1U) << Answer("w_return1");
  EXPECT_NEAR(std::stod(Answer("w_return")), -70, 1);
}

TEST_F(WindowPicks, OfAPositionAreOnTheGridWhereThatIsOn) {
  OpenSample();
  actions()[window::Command::kGrid]->trigger();
  double step = 0;
  Play(std::string(kBar) + "press 2006\n", {[&] {
         drawing().Fit();
         step = window::GridStep(drawing().frame().scale(), LengthUnit::kMillimetre);
         Click(drawing(), At(-3.3 * step, 5.4 * step));
       }});
  EXPECT_DOUBLE_EQ(std::stod(Answer("w_return")), -3 * step);
}

TEST_F(WindowPicks, OfAPositionCanBeTyped) {
  OpenSample();
  std::string refused;
  Play(std::string(kBar) + "press 2005\npress 2016\n", {[&] {
         auto* const edit = hint().findChild<QLineEdit*>();
         EXPECT_EQ(edit->placeholderText(), "X and Y in mm, then Enter");
         QTest::keyClicks(edit, "abc 3");
         QTest::keyClick(edit, Qt::Key_Return);
         refused = Hint();
         EXPECT_TRUE(IsPicking());
         QTest::keyClicks(edit, "-70; 15,5");
         QTest::keyClick(edit, Qt::Key_Return);
       }});
  EXPECT_THAT(refused, HasSubstr("'abc 3' is not a position"));
  EXPECT_THAT(Section(1, 3)[1], HasSubstr("1 31.000000 120.000000"));
}

TEST_F(WindowPicks, DoNotMakeTheWindowWiderThatMadeRoomForTheDialog) {
  OpenSample();
  window->resize(740, 900);
  QCoreApplication::processEvents();
  const int before = window->width();
  int during = 0;
  Play(std::string(kBar) + "press 2005\npress 2016\n", {[&] {
         EXPECT_TRUE(hint().isVisible());
         during = window->width();
         window->equipmentCommands().CancelPick();
       }});
  EXPECT_EQ(during, before);
}

TEST_F(WindowPicks, OfAPositionAreTypedInTheUnitOfTheProject) {
  OpenSample();
  const auto settings = folder / "lathe/bench.ini";
  WriteBytes(settings, ReadBytes(settings) + "\n[project]\nunit = inch\n");
  Play(std::string(kBar) + "press 2005\npress 2016\n", {[&] {
         auto* const edit = hint().findChild<QLineEdit*>();
         EXPECT_EQ(edit->placeholderText(), "X and Y in inch, then Enter");
         QTest::keyClicks(edit, "-3 1.5");
         QTest::keyClick(edit, Qt::Key_Return);
       }});
  EXPECT_THAT(Section(1, 3)[1], HasSubstr("1 76.200000 120.000000"));
}

TEST_F(WindowPicks, OfTheCornerOfABilletAreItsDiameter) {
  OpenSample();
  Play(std::string(kBar) + "press 2005\npress 2016\n", {[&] {
         drawing().Fit();
         Click(drawing(), At(-120, 40) + QPoint(5, -4));
       }});
  EXPECT_THAT(Messages(), HasSubstr("w_return2 = 40"));
  EXPECT_THAT(Section(1, 3)[1], HasSubstr("1 80.000000 120.000000"));
}

TEST_F(WindowPicks, InAReopenedProjectSeeItsDrawing) {
  OpenSample(true);
  Restart();
  ASSERT_TRUE(window->projectCommands().Open(folder / "lathe"));
  // The pick is the first thing that this dialog asks of the workbench: no line has come before it.
  Play("select 19\npress 2005\n", {[&] {
         EXPECT_EQ(layers().list().findItems("Billet_Spindel_1", Qt::MatchExactly).size(), 1);
         drawing().Fit();
         QTest::mouseMove(&drawing(), At(-50, 21) + QPoint(5, -4));
         EXPECT_TRUE(drawing().snap()) << "the billet's corner";
         Escape();
       }});
}

TEST_F(WindowPicks, AreCancelledByEscape) {
  OpenSample();
  Play(std::string(kBar) + "press 2005\npress 2016\n", {[&] { Escape(); }});
  EXPECT_THAT(Section(1, 3)[1], HasSubstr("1 80.000000 120.000000"));
  EXPECT_THAT(Messages(), HasSubstr("i_return = 27"));
}

TEST_F(WindowPicks, OfAFigureAreTheOneThatIsClickedAndNotOneOfTheModule) {
  OpenSample();
  DrawAShape();
  std::string prompt;
  Play(std::string(kBar) + "select 20\npress 2010\npress 2015\n", {[&] {
         prompt = Hint();
         EXPECT_TRUE(choice().isVisible());
         EXPECT_EQ(choice().list().count(), 1) << "the drawing also has the billet";
         drawing().Fit();
         Click(drawing(), At(-60, 40));
         EXPECT_TRUE(IsPicking());
         Click(drawing(), At(-25, 60));
       }});
  EXPECT_THAT(prompt, HasSubstr("Select Figure"));
  EXPECT_THAT(Section(1, 3), Contains("Shape"));
  EXPECT_FALSE(choice().isVisible());
}

TEST_F(WindowPicks, OfAFigureCanBeChosenFromTheList) {
  OpenSample();
  std::filesystem::copy(VANZET_SOURCE_DIR "/examples/contours/bracket.dxf",
                        folder / "lathe" / "figures/bracket.dxf");
  Play("select 20\npress 2010\npress 2015\n", {[&] {
         QListWidget& list = choice().list();
         ASSERT_EQ(list.count(), 1);
         emit list.itemActivated(list.item(0));
       }});
  EXPECT_THAT(Section(1, 3), Contains(HasSubstr("bracket")));
}

TEST_F(WindowPicks, OfferFiguresWithPicturesToBeSearched) {
  OpenSample();
  const auto figures = folder / "lathe" / "figures";
  for (const char* name : {"arm.txt", "bracket.txt"})
    WriteBytes(figures / name, "k1 e\nx0 y0\nx40 y0\nx40 y25\nx0 y0\nek\n");
  WriteBytes(figures / "broken.txt", "rubbish");
  const auto rows = [this] {
    QStringList texts;
    for (int row = 0; row < choice().list().count(); ++row) {
      const QListWidgetItem& item = *choice().list().item(row);
      if (!item.isHidden()) texts << item.text();
    }
    return texts;
  };
  const auto pixels = [this](int row) {
    return choice().list().item(row)->icon().pixmap(window::kPreviewSize).toImage();
  };
  Play("select 20\npress 2010\npress 2015\n", {[&] {
         const QStringList all = {"arm\n40 x 25 mm", "bracket\n40 x 25 mm", "broken"};
         EXPECT_TRUE(QTest::qWaitFor([&] { return rows() == all; })) << rows().join(", ").toStdString();
         EXPECT_NE(pixels(0), pixels(2)) << "the last one cannot be read";
         QTest::keyClicks(&choice().search(), "BRACK");
         EXPECT_EQ(rows().size(), 1);
         QTest::keyClick(&choice().search(), Qt::Key_Return);
       }});
  EXPECT_THAT(Section(1, 3), Contains(HasSubstr("bracket")));
  Play("select 20\npress 2010\n", {[&] {
         EXPECT_TRUE(rows()[0].startsWith("bracket")) << "it was taken last";
         QTest::keyClick(&choice().search(), Qt::Key_Down);
         QTest::keyClick(&choice().search(), Qt::Key_Down);
         EXPECT_EQ(choice().list().currentRow(), 1);
         Escape();
       }});
}

TEST_F(WindowPicks, OfferSolidsWithPicturesThatAreMadeInTheBackground) {
  OpenSample();
  const auto bodies = folder / "lathe" / "bodies";
  std::filesystem::copy(VANZET_SOURCE_DIR "/examples/bodies/casting.step", bodies / "casting.step");
  WriteBytes(bodies / "broken.step", "nothing of the kind");
  Play("select 21\npress 2018\n", {[&] {
         QListWidget& list = choice().list();
         ASSERT_EQ(list.count(), 2);
         EXPECT_TRUE(QTest::qWaitFor([&] { return list.item(1)->text().contains(" mm"); }, 2500))
             << list.item(1)->text().toStdString();
         EXPECT_EQ(list.item(0)->text(), "broken");
         const QImage picture = list.item(1)->icon().pixmap(window::kPreviewSize).toImage();
         EXPECT_NE(picture.pixelColor(picture.rect().center()), picture.pixelColor(1, 1));
         Escape();
       }});
}

TEST_F(WindowPicks, ShowAFigureOfTheFolderWhenItsNameIsMarked) {
  OpenSample();
  std::filesystem::copy(VANZET_SOURCE_DIR "/examples/contours/bracket.dxf",
                        folder / "lathe" / "figures/bracket.dxf");
  Play("select 20\npress 2010\npress 2015\n", {[&] {
         const QImage before = drawing().grab().toImage();
         choice().list().setCurrentRow(0);
         EXPECT_NE(drawing().grab().toImage(), before);
         choice().list().setCurrentRow(-1);
         Escape();
       }});
  EXPECT_FALSE(window->session()->Drawing()->HasFigure("bracket")) << "it was only shown";
}

TEST_F(WindowPicks, WhoseFigureIsLostLaterLeaveTheRestOfTheEquipment) {
  OpenSample(true);
  const auto figure = folder / "lathe" / "figures/bracket.dxf";
  std::filesystem::copy(VANZET_SOURCE_DIR "/examples/contours/bracket.dxf", figure);
  Play("select 20\npress 2010\npress 2015\n", {[&] {
         QListWidget& list = choice().list();
         emit list.itemActivated(list.item(0));
       }});
  std::filesystem::remove(figure);
  window->equipmentCommands().Refresh();
  EXPECT_THAT(notice().Message().toStdString(), HasSubstr("bracket"));
  ASSERT_TRUE(exports().WriteBodies(modeller::ExportFormat::kStl, folder / "out"));
  EXPECT_TRUE(std::filesystem::exists(folder / "out/main-chuck.stl"));
  EXPECT_FALSE(std::filesystem::exists(folder / "out/main-billet.stl"));
}

TEST_F(WindowPicks, OfASolidAreShownAndTaken) {
  OpenSample();
  std::filesystem::copy(VANZET_SOURCE_DIR "/examples/bodies/casting.step",
                        folder / "lathe" / "bodies/casting.step");
  Play("select 21\npress 2018\npress 2015\n", {[&] {
         QListWidget& list = choice().list();
         ASSERT_EQ(list.count(), 1);
         QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier,
                           list.visualItemRect(list.item(0)).center());
         ASSERT_TRUE(QTest::qWaitFor([&] { return equipment().isSmooth(); }, 5000)) << Messages();
         Click(equipment(), equipment().rect().center());
         if (IsPicking()) emit list.itemActivated(list.item(0));
       }});
  EXPECT_THAT(Section(1, 3), Contains(HasSubstr("casting")));
  EXPECT_EQ(notice().Message(), "");
}

TEST_F(WindowPicks, DoNotLetTheWindowCloseButEnd) {
  OpenSample();
  Play(std::string(kBar) + "press 2005\n", {[&] {
         EXPECT_FALSE(window->close());
         EXPECT_FALSE(actions()[window::Command::kOpenProject]->isEnabled());
       }});
  EXPECT_TRUE(window->isVisible());
  EXPECT_TRUE(actions()[window::Command::kOpenProject]->isEnabled());
}

}  // namespace
}  // namespace vanzet::test
