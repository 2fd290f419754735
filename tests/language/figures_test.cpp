#include <sstream>

#include "language_fixture.h"

namespace vanzet::language {
namespace {

using drawing::Window;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class Figures : public LanguageTest {
 protected:
  Figures() { DoAll({"win 0", "k1 e X0 Y0 X5 Y0 ek", "set m1"}); }

  const drawing::Figure& Figure(const std::string& name) const { return board.drawing().figures.at(name); }
  std::vector<std::string> Layers() const {
    std::vector<std::string> names;
    for (const auto& [name, pen] : board.drawing().layers) names.push_back(name);
    return names;
  }
  /// "colour style" of a layer.
  std::string Pen(const std::string& layer) const {
    const drawing::Pen& pen = board.drawing().layers.at(layer);
    return std::string(pen.colour->name) + " " + std::string(pen.style->name);
  }
};

TEST_F(Figures, TakeCopiesOfContours) {
  DoAll({"fig cre F z0x0y0", "figure append F k1", "k1 e X0 Y0 X0 Y9 ek", "figure append F k1", "del k1"});
  ASSERT_EQ(Figure("F").strokes.size(), 2U);
  EXPECT_THAT(VerticesOf(Figure("F").strokes[0].curve), ElementsAre("0 0", "5 0", "0 0"));
  EXPECT_THAT(VerticesOf(Figure("F").strokes[1].curve), ElementsAre("0 0", "0 9", "0 0"));
}

TEST_F(Figures, AreMadeWithEitherAxisText) {
  DoAll({"fig cre A z0x0y0", "fig cre B x0y0z0"});
  EXPECT_EQ(Outcome("fig cre C y0"), "11: expected the axes z0x0y0 or x0y0z0, found 'y0'");
  EXPECT_EQ(Outcome("fig cre C"), "10: expected the axes");
}

TEST_F(Figures, OfTheTurningPlaneTakeHeightsAsDiameters) {
  DoAll({"mct turning", "i_diaprg=1", "fig cre F z0x0y0", "k2 e X0 Y0 X0 Y42 X-9 Y-42 ek",
         "figure append F k2", "fig cre Mark x0y0z0", "figure append Mark k2"});
  EXPECT_THAT(VerticesOf(Figure("F").strokes[0].curve), ElementsAre("0 0", "0 21", "-9 -21", "0 0"));
  EXPECT_THAT(VerticesOf(Figure("Mark").strokes[0].curve), ElementsAre("0 0", "0 42", "-9 -42", "0 0"));
  EXPECT_THAT(Vertices(2), ElementsAre("0 0", "0 42", "-9 -42", "0 0")) << "the contour keeps what was sent";
}

TEST_F(Figures, TakeHeightsAsTheyAreWithoutDiameterProgramming) {
  DoAll({"k2 e X0 Y0 X0 Y42 ek", "i_diaprg=1", "fig cre NotTurning z0x0y0", "figure append NotTurning k2",
         "mct turning", "i_diaprg=0", "fig cre Radii z0x0y0", "i_diaprg=1", "figure append Radii k2"});
  for (const char* name : {"NotTurning", "Radii"}) {
    EXPECT_THAT(VerticesOf(Figure(name).strokes[0].curve), ElementsAre("0 0", "0 42", "0 0")) << name;
  }
}

TEST_F(Figures, TakeRadiiAgainWhenTheyAreMadeAgainWithThem) {
  DoAll({"k2 e X0 Y0 X0 Y42 ek", "mct turning", "i_diaprg=1", "fig cre F z0x0y0", "fig del F yes",
         "i_diaprg=0", "fig cre F z0x0y0", "figure append F k2"});
  EXPECT_THAT(VerticesOf(Figure("F").strokes[0].curve), ElementsAre("0 0", "0 42", "0 0"));
}

TEST_F(Figures, OfDiametersRefuseArcsThatHaveNoHalf) {
  DoAll({"mct turning", "i_diaprg=1", "fig cre F z0x0y0", "p1=X5 Y0", "p2=X-5 Y0", "p3=X0 Y5", "p4=X0 Y0",
         "c1=p4 5", "k2 p1 ac1 p3 ek", "k3 p1 ac1 p2 ek"});
  EXPECT_EQ(Outcome("figure append F k2"), "17: the heights of an arc cannot be taken as diameters");
  EXPECT_THAT(Figure("F").strokes, IsEmpty());
}

TEST_F(Figures, OfTheModuleAreNeitherPickedNorNumbered) {
  DoAll({"fig cre BilletM z0x0y0", "fig cre F x0y0z0"});
  std::istringstream text("figure BilletM\nfigure F\n");
  picks = *drawing::Picks::Read(text, "picks.txt");
  EXPECT_EQ(Outcome("dfm pick i_return i_return2 'Select Figure' 20"),
            "picks.txt:1: figure 'BilletM' is the module's own: it cannot be picked");
  DoAll({"dfm pick i_return i_return2 'Select Figure' 20"});
  EXPECT_EQ(variables.Integer("i_return2"), 1);
}

TEST_F(Figures, AreInsertedIntoTheCurrentWindowUnderATransform) {
  DoAll({"fig cre F x0y0z0", "figure append F k1", "win 1", "tra m1 x-12.500000", "fig ins F m1", "del m1"});
  ASSERT_EQ(Figure("F").insertions.size(), 1U);
  EXPECT_EQ(Figure("F").insertions[0].window, Window::kDisplay);
  EXPECT_EQ(Figure("F").insertions[0].placement, (drawing::Placement{1, 0, 0, 1, -12.5, 0}));
}

TEST_F(Figures, AreDeletedWithTheirInsertionsAndMayBeMissing) {
  DoAll({"fig cre F x0y0z0", "fig ins F m1", "fig del F yes", "fig del F yes", "fig cre F x0y0z0"});
  EXPECT_THAT(Figure("F").insertions, IsEmpty());
}

TEST_F(Figures, ThatAreWrongAreReportedAndNothingChanges) {
  DoAll({"fig cre F x0y0z0"});
  EXPECT_EQ(Outcome("fig cre F x0y0z0"), "9: figure F already exists");
  EXPECT_EQ(Outcome("fig del F"), "10: expected 'yes'");
  EXPECT_EQ(Outcome("fig del F no"), "11: expected 'yes', found 'no'");
  EXPECT_EQ(Outcome("figure append G k1"), "15: figure 'G' does not exist");
  EXPECT_EQ(Outcome("figure append F k7"), "17: k7 does not exist");
  EXPECT_EQ(Outcome("figure append F p1"), "17: expected a contour like k1, found 'p1'");
  EXPECT_EQ(Outcome("fig ins G m1"), "9: figure 'G' does not exist");
  EXPECT_EQ(Outcome("fig ins F m7"), "11: m7 does not exist");
  EXPECT_EQ(Outcome("fig rub"), "5: expected one of 'cre', 'del', 'ins' after 'fig', found 'rub'");
  EXPECT_EQ(Outcome("fig cre bad\x01name x0y0z0").substr(0, 3), "9: ");
  EXPECT_THAT(Figure("F").strokes, IsEmpty());
  EXPECT_EQ(board.drawing().figures.size(), 1U);
}

TEST_F(Figures, LayersBecomeCurrentByTheNameBetweenTheLastTwoQuotes) {
  DoAll({"lay ch 'Billet_Spindel_1'"});
  EXPECT_EQ(board.layer(), "Billet_Spindel_1");
  DoAll({"lay ch ''Billet_out_HS'"});
  EXPECT_EQ(board.layer(), "Billet_out_HS");
  DoAll({"lay ch 'with blanks' "});
  EXPECT_EQ(board.layer(), "with blanks");
  EXPECT_THAT(Layers(), UnorderedElementsAre("0", "Billet_Spindel_1", "Billet_out_HS", "with blanks"));
}

TEST_F(Figures, LayersThatAreWrongAreReported) {
  EXPECT_EQ(Outcome("lay ch X"), "8: expected a layer in single quotes, found 'X'");
  EXPECT_EQ(Outcome("lay ch 'X"), "8: the closing quote is missing");
  EXPECT_EQ(Outcome("lay ch 'X' more"), "11: expected the end of the line after the layer, found ' more'");
  EXPECT_EQ(
      Outcome("lay ch ''"),
      "8: a layer cannot be called '': a name has 1 to 255 bytes, no control character, and no blank at "
      "its ends");
  EXPECT_EQ(Outcome("lay del"), "8: expected the name of a layer");
  EXPECT_EQ(Outcome("lay del 0"), "9: layer 0 cannot be deleted");
  EXPECT_EQ(board.layer(), "0");
}

TEST_F(Figures, ALayerIsDeletedWithItsContents) {
  DoAll({"fig cre F x0y0z0", "figure append F k1", "lay ch 'L'", "k2 e X1 Y0 X5 Y0 ek", "figure append F k2",
         "win 1", "s-100 = v5", "lay ch '0'", "lay del L"});
  EXPECT_EQ(Figure("F").strokes.size(), 1U);
  EXPECT_EQ(board.FindContour(2), nullptr);
  EXPECT_EQ(board.FindLine(-100), nullptr);
  EXPECT_THAT(Layers(), ElementsAre("0"));
  DoAll({"lay del L", "lay ch 'L'"});
}

TEST_F(Figures, TheFirstLayerIsCurrentWhenTheCurrentOneIsDeleted) {
  DoAll({"lay ch 'L'", "lay del L"});
  EXPECT_EQ(board.layer(), "0");
}

TEST_F(Figures, TheLayerMacroTakesColourAndStyleFromItsFirstTwoFieldsOrTheNextTwo) {
  DoAll({"call @@lay 'magenta' 'solid' '' '' 'A'", "call @@lay '' '' 'grey' 'dot' 'B'",
         "call @@lay 'red' '' 'grey' 'dash' 'C'"});
  EXPECT_EQ(Pen("A"), "magenta solid");
  EXPECT_EQ(Pen("B"), "grey dot");
  EXPECT_EQ(Pen("C"), "red dash");
}

TEST_F(Figures, TheLayerMacroTakesBothFormsOfTheMarks) {
  ASSERT_TRUE(RunMacro("@@lay", "'' '' 'grey' 'dot' 'Billet_out_HS'", surroundings));
  EXPECT_EQ(board.layer(), "Billet_out_HS");
  EXPECT_EQ(Pen("Billet_out_HS"), "grey dot");
  ASSERT_TRUE(RunMacro("@@lay", "", surroundings));
  EXPECT_EQ(board.layer(), "0");
  ASSERT_TRUE(RunMacro("@@lay", "'grey' 'solid' '' '' ''Billet_out_HS'", surroundings));
  EXPECT_EQ(board.layer(), "Billet_out_HS");
  EXPECT_EQ(Pen("Billet_out_HS"), "grey solid");
}

TEST_F(Figures, TheLayerMacroAloneGoesBackToTheLayerBefore) {
  DoAll({"lay ch 'A'", "call @@lay 'red' 'dot' '' '' 'B'", "call @@lay"});
  EXPECT_EQ(board.layer(), "A");
  DoAll({"call @@lay"});
  EXPECT_EQ(board.layer(), "A");
  DoAll({"call @@lay 'red' 'dot' '' '' 'B'", "lay del A", "call @@lay"});
  EXPECT_EQ(board.layer(), "0") << "A was deleted meanwhile";
}

TEST_F(Figures, WhatIsDrawnKeepsThePenOfItsTime) {
  DoAll({"win 1", "call @@lay '' '' 'grey' 'dot' 'L'", "s-100 = v5", "call @@lay 'red' 'solid' '' '' 'L'",
         "k2 e X1 Y0 X5 Y0 ek"});
  EXPECT_EQ(board.drawing().lines.at({"L", -100}).pen.style->name, "dot");
  EXPECT_EQ(board.drawing().contours.at(2).stroke.pen.colour->name, "red");
}

TEST_F(Figures, TheLayerMacroReportsErrorsWithTheirColumn) {
  EXPECT_EQ(
      Outcome("call @@lay 'pink' 'solid' '' '' 'L'"),
      "12: expected black, blue, brown, cyan, green, grey, magenta, orange, red, violet or yellow, found "
      "'pink'");
  EXPECT_EQ(Outcome("call @@lay 'red' 'wavy' '' '' 'L'"),
            "18: expected solid, dash, dashdot or dot, found 'wavy'");
  EXPECT_EQ(Outcome("call @@lay red"), "12: expected the layer in single quotes at the end");
  EXPECT_EQ(Outcome("call @@lay 'red' x 'L'"), "18: expected a colour or a line style in single quotes");
  EXPECT_EQ(Outcome("call @@lay '' '' '' '' '' '' 'L'"), "25: expected the end of the line, found '' '' '");
  EXPECT_EQ(Outcome("call @@nothing"), "6: macro '@@nothing' does not exist");
  EXPECT_EQ(Outcome("call"), "5: expected the name of a macro");
  EXPECT_EQ(board.layer(), "0");
}

TEST_F(Figures, LinesOfTheDisplayWindowBelongToTheirLayers) {
  DoAll({"win 1", "lay ch 'A'", "s-100 = v1", "lay ch 'B'", "s-100 = v2"});
  EXPECT_EQ(board.drawing().lines.size(), 2U) << "each spindle has its mark";
  EXPECT_EQ(board.FindLine(-100)->p.x, 2);
  DoAll({"lay ch '0'", "del s-100"});
  EXPECT_EQ(board.drawing().lines.size(), 1U);
}

TEST_F(Figures, WindowsAreTwo) {
  DoAll({"win 1"});
  EXPECT_EQ(board.window, Window::kDisplay);
  DoAll({"win 0"});
  EXPECT_EQ(board.window, Window::kConstruction);
  EXPECT_EQ(Outcome("win 2"), "5: expected window 0 or 1");
  EXPECT_EQ(Outcome("win"), "4: expected 0 or 1");
  EXPECT_EQ(board.window, Window::kConstruction);
}

TEST_F(Figures, StateCommandsAreTaken) {
  DoAll({"ori", "mct turning", "red -1"});
  EXPECT_EQ(Outcome("mct milling"), "5: expected 'turning', found 'milling'");
  EXPECT_EQ(Outcome("ori x"), "5: expected the end of the line, found 'x'");
  EXPECT_EQ(Outcome("red 5"), "5: expected -1, for all that is shown");
}

}  // namespace
}  // namespace vanzet::language
