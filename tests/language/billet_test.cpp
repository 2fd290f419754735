#include <numbers>

#include "language_fixture.h"
#include "modeller/measures.h"

/// The lines that draw billets and marks, as modules send them.
namespace vanzet::language {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Billets : public LanguageTest {
 protected:
  /// The lines of a billet of 100 x 80 with a bore of 30, a bar of 200, and allowances of 5 and 2.
  void DrawBillet() {
    DoAll({"win 1",
           "fig del BilletM yes",
           "red -1",
           "ori",
           "mct turning",
           "i_diaprg=1",
           "lay ch 'Billet_Spindel_1'",
           "call @@lay 'magenta' 'solid' '' '' 'Billet_Spindel_1'",
           "win 0",
           "s100=h 0",
           "s101=h 80.000000",
           "s102=h -80.000000",
           "s110=v 5.000000",
           "s111=v 0.000000",
           "s112=v -100.000000",
           "s113=v -102.000000",
           "s114=v -195.000000",
           "fig cre BilletM z0x0y0",
           "p100=s100 s110",
           "k30000 p100 ts110 as101 as114 ts102 ts110 p100 ek",
           "figure append BilletM k30000",
           "s103=h 30.000000",
           "s104=h -30.000000",
           "p100=s103 s110",
           "p101=s103 s114",
           "k30000 p100 as103 p101 ek",
           "figure append BilletM k30000",
           "k30000 p100 as104 p101 ek",
           "figure append BilletM k30000"});
    for (const char* station : {"s111", "s112", "s113"}) DrawStation(station);
    DoAll({"del s100>121 p100>110", "call @@lay", "set m30000", "win 1", "fig ins BilletM m30000",
           "del m30000", "red -1", "lay ch '0'"});
  }
  void DrawStation(const std::string& s) {
    DoAll({"p100=s101 " + s, "p101=s103 " + s, "k30000 p100 a" + s + " p101 ek",
           "figure append BilletM k30000", "p100=s104 " + s, "p101=s102 " + s,
           "k30000 p100 a" + s + " p101 ek", "figure append BilletM k30000"});
  }
  /// The lines of the marks of a datum: clamped out 60, origin 20.
  void DrawMarks(const std::string& figure, const std::string& layer, const std::string& line) {
    DoAll({"win 1", "fig del " + figure + " yes", "lay del " + layer, "ori", "mct turning"});
    ASSERT_TRUE(RunMacro("@@lay", "'' '' 'grey' 'dot' '" + layer + "'", surroundings));
    DoAll({"s-100 = v" + line});
    ASSERT_TRUE(RunMacro("@@lay", "", surroundings));
    DoAll({"win 0", "lay ch ''" + layer + "'"});
    ASSERT_TRUE(RunMacro("@@lay", "'grey' 'solid' '' '' ''" + layer + "'", surroundings));
    DoAll({"fig cre " + figure + " x0y0z0", "k30010 e X5 Y0 X-5 Y0 ek", "figure append " + figure + " k30010",
           "k30011 e X0 Y5 X0 Y-5 ek", "figure append " + figure + " k30011", "p100=X0 Y0", "c100=p100 2",
           "p101=X2 Y0", "p102=X-2 Y0", "k30012 p101 ac100 p102 ac100 p101 ek", "del p100>102 c100",
           "figure append " + figure + " k30012"});
    ASSERT_TRUE(RunMacro("@@lay", "", surroundings));
    DoAll({"win 1", "set m30000", "tra m30000 x20.000000", "fig ins " + figure + " m30000", "del m30000",
           "lay ch '0'", "red -1"});
  }
  /// The half section of a cylinder, drawn, and that of a cavity in it, in a file.
  void PutFigures() {
    DoAll({"win 0", "k1 e X0 Y0 X0 Y40 X-50 Y40 X-50 Y0 X0 Y0 ek", "fig cre Outside x0y0z0",
           "figure append Outside k1", "k2 e X-10 Y0 X-10 Y10 X-40 Y10 X-40 Y0 X-10 Y0 ek"});
    workplace.figures["Inside"] = {*board.FindContour(2)};
  }

  std::vector<std::vector<std::string>> Strokes(const std::string& figure) const {
    std::vector<std::vector<std::string>> strokes;
    for (const auto& stroke : board.drawing().figures.at(figure).strokes) {
      strokes.push_back(VerticesOf(stroke.curve));
    }
    return strokes;
  }

  /// Keeps a definition whose main spindle has these billet items, as if it was closed last.
  void CloseDefinition(const std::vector<std::string>& items) {
    if (*store.Exists(1000)) {
      ASSERT_TRUE(store.Delete(1000));
    }
    const auto handle = store.Create(1000);
    ASSERT_TRUE(handle);
    vdm::OpenVdm& vdm = *store.Find(*handle);
    ASSERT_TRUE(vdm.Insert("1 1 1 1"));
    ASSERT_TRUE(vdm.SingleSeek(1));
    ASSERT_TRUE(vdm.SingleAdd("Billet definition"));
    vdm.Seek(1);
    ASSERT_TRUE(vdm.Insert("2 1 4 1 0 0 " + std::to_string(items.size())));
    ASSERT_TRUE(vdm.SingleSeek(1));
    ASSERT_TRUE(vdm.SingleAdd("Main Spindle"));
    for (const std::string& item : items) ASSERT_TRUE(vdm.SingleAdd(item));
    store.Close(*handle);
  }
};

TEST_F(Billets, WithBarAndBoreHaveNineStrokes) {
  DrawBillet();
  EXPECT_THAT(Strokes("BilletM"),
              ElementsAre(ElementsAre("5 0", "5 40", "-195 40", "-195 -40", "5 -40", "5 0"),
                          ElementsAre("5 15", "-195 15"), ElementsAre("5 -15", "-195 -15"),
                          ElementsAre("0 40", "0 15"), ElementsAre("0 -15", "0 -40"),
                          ElementsAre("-100 40", "-100 15"), ElementsAre("-100 -15", "-100 -40"),
                          ElementsAre("-102 40", "-102 15"), ElementsAre("-102 -15", "-102 -40")));
  for (const auto& stroke : board.drawing().figures.at("BilletM").strokes) {
    EXPECT_EQ(stroke.layer, "Billet_Spindel_1");
    EXPECT_EQ(stroke.pen.colour->name, "magenta");
  }
  EXPECT_TRUE(board.workpieces.lines.empty());
}

TEST_F(Billets, AreDrawnAgain) {
  DrawBillet();
  DrawBillet();
  EXPECT_EQ(Strokes("BilletM").size(), 9U);
  EXPECT_EQ(board.drawing().figures.at("BilletM").insertions.size(), 1U);
}

TEST_F(Billets, WithoutBoreLeaveNothingElse) {
  DoAll({"win 0", "s100=h 0", "s101=h 80", "s102=h -80", "s110=v 0", "s113=v -100", "fig cre BilletM z0x0y0",
         "p100=s100 s110", "k30000 p100 ts110 as101 as113 ts102 ts110 p100 ek",
         "figure append BilletM k30000", "del s100>121 p100>110"});
  EXPECT_TRUE(board.workpieces.lines.empty());
  EXPECT_TRUE(board.workpieces.points.empty());
}

TEST_F(Billets, MarksAreADottedLineAndACrossInACircle) {
  DrawMarks("ZOffsetMain", "Billet_out_HS", "-40.000000");
  EXPECT_THAT(Strokes("ZOffsetMain"),
              ElementsAre(ElementsAre("5 0", "-5 0", "5 0"), ElementsAre("0 5", "0 -5", "0 5"),
                          ElementsAre("2 0", "-2 0 about 0 0", "2 0 about 0 0")));
  const drawing::DrawnLine& line = board.drawing().lines.at({"Billet_out_HS", -100});
  EXPECT_EQ(line.line.p.x, -40);
  EXPECT_EQ(line.pen.colour->name, "grey");
  EXPECT_EQ(line.pen.style->name, "dot");
  EXPECT_EQ(board.drawing().figures.at("ZOffsetMain").strokes[0].pen.style->name, "solid");
  EXPECT_EQ(board.drawing().figures.at("ZOffsetMain").insertions[0].placement.x, 20);
  EXPECT_EQ(board.layer(), "0");
}

TEST_F(Billets, MarksOfBothSpindlesRemain) {
  DrawMarks("ZOffsetMain", "Billet_out_HS", "-40.000000");
  DrawMarks("ZOffsetSub", "Billet_out_GS", "260.000000");
  EXPECT_EQ(board.drawing().lines.size(), 2U);
}

TEST_F(Billets, MarksGoWithTheirLayer) {
  DrawMarks("ZOffsetMain", "Billet_out_HS", "-40.000000");
  DoAll({"win 1", "fig del ZOffsetMain yes", "lay del Billet_out_HS"});
  EXPECT_THAT(board.drawing().lines, IsEmpty());
  EXPECT_THAT(board.drawing().figures, IsEmpty());
}

TEST_F(Billets, FromFiguresTakeThemFromTheDrawingAndFromFiles) {
  PutFigures();
  CloseDefinition({"MainBillet", "2 0 100.000000", "Outside", "Inside"});
  ASSERT_TRUE(RunMacro("crebilfromfig", "1", surroundings));
  EXPECT_EQ(Strokes("BilletM").size(), 2U);
  const drawing::Figure& figure = board.drawing().figures.at("BilletM");
  EXPECT_EQ(figure.strokes[0].layer, "Billet_Spindel_1");
  EXPECT_EQ(figure.strokes[0].pen.colour->name, "magenta");
  EXPECT_EQ(figure.insertions.at(0).window, drawing::Window::kDisplay);
  EXPECT_EQ(board.layer(), "0");
  EXPECT_EQ(board.window, drawing::Window::kConstruction);
}

TEST_F(Billets, FromFiguresReplaceTheBilletThatIsDrawn) {
  DrawBillet();
  PutFigures();
  CloseDefinition({"MainBillet", "2 0 100.000000", "Outside", ""});
  DoAll({"call crebilfromfig 1"});
  EXPECT_EQ(Strokes("BilletM").size(), 1U);
}

TEST_F(Billets, FromFiguresAreSolidsWithTheInsideTakenAway) {
  PutFigures();
  for (const auto& [inside, volume] :
       {std::pair{"Inside", 50 * 40 * 40 - 30 * 10 * 10}, {"", 50 * 40 * 40}}) {
    CloseDefinition({"MainBillet", "2 0 100.000000", "Outside", inside});
    DoAll({"call crebilfromfig 1"});
    const auto billet = bodies.Get(bodies.NumberOf("BilletM"));
    ASSERT_TRUE(billet) << billet.fault().text;
    EXPECT_NEAR(modeller::MeasuresOf(*billet)->volume, volume * std::numbers::pi, 1e-3) << inside;
  }
  EXPECT_EQ(bodies.Numbers().size(), 1U) << "the new one takes the old one's place";
}

TEST_F(Billets, FromFiguresThatCannotBeSpunAreDrawnAndHaveNoSolid) {
  PutFigures();
  CloseDefinition({"MainBillet", "2 0 100.000000", "Outside", ""});
  DoAll({"call crebilfromfig 1"});
  DrawBillet();
  CloseDefinition({"MainBillet", "2 0 100.000000", "BilletM", ""});
  EXPECT_THAT(Outcome("call crebilfromfig 1"),
              testing::StartsWith("BilletM is drawn but has no solid: the contour crosses the axis"));
  EXPECT_EQ(Strokes("BilletM").size(), 9U);
  EXPECT_EQ(bodies.NumberOf("BilletM"), 0);
}

TEST_F(Billets, FromMissingFiguresAreReportedAndTheOldOneStays) {
  DrawBillet();
  EXPECT_EQ(Outcome("call crebilfromfig 1"), "no definition was closed yet");
  CloseDefinition({"MainBillet", "2 0 100.000000", "Nowhere", "0"});
  EXPECT_EQ(Outcome("call crebilfromfig 1"), "figure 'Nowhere' does not exist");
  EXPECT_EQ(Outcome("call crebilfromfig 2"),
            "the definition that was closed last has no billet of that spindle");
  EXPECT_EQ(Outcome("call crebilfromfig 3"),
            "20: expected 1 for the main spindle or 2 for the sub spindle, found '3'");
  EXPECT_EQ(Strokes("BilletM").size(), 9U);
}

TEST_F(Billets, OfAnotherKindAreNotFromFigures) {
  CloseDefinition({"MainBillet", "1 80 100 0 0 0 0 0", "", ""});
  EXPECT_EQ(Outcome("call crebilfromfig 1"), "the billet of that spindle is not from figures");
}

}  // namespace
}  // namespace vanzet::language
