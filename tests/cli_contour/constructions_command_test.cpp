#include "command_fixture.h"

#include "support/places.h"

namespace vanzet::test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class ContourConstructions : public ContourCommandTest {
 protected:
  ContourConstructions() {
    WriteBytes(folder / "hook.txt", "k4 e x0 y0\nx10 y0\nx10 y5\nx7 y9\nek\n");
    WriteBytes(folder / "square.txt",
               "k7 e x-12 y-20\nx12 y-20\nax20 y-12 x12 y-12\nx20 y12\nax12 y20 x12 y12\nx-12 y20\n"
               "ax-20 y12 x-12 y12\nx-20 y-12\nax-12 y-20 x-12 y-12\nek\n");
    WriteBytes(folder / "two.txt", "k1 e x0 y0\nx9 y0\nek\nk2 e x0 y5\nx9 y5\nek\n");
  }

  nlohmann::json FactsOf(const std::string& arguments, std::size_t contour = 0) {
    const Outcome made = Vanzet("contour " + arguments);
    EXPECT_EQ(made.status, 0) << arguments << ": " << made.err;
    return Json("info", made.out)["contours"].at(contour);
  }
};

TEST_F(ContourConstructions, OffsetsLieOnTheSideThatWasAskedFor) {
  // The slot runs clockwise: its right is inside.
  EXPECT_NEAR(FactsOf("offset slot.txt 2 --right")["perimeter"], 80 + 16 * kPi, 1e-6);
  EXPECT_NEAR(FactsOf("offset slot.txt 2 --left")["perimeter"], 80 + 24 * kPi, 1e-6);
  EXPECT_EQ(Vanzet("contour offset slot.txt 2").out, Vanzet("contour offset slot.txt 2 --left").out);
  for (const char* method : {"kurve", "kurveex", "spans"}) {
    EXPECT_NEAR(FactsOf("offset slot.txt 3 --right --method " + std::string(method))["perimeter"],
                80 + 14 * kPi, 1e-6);
  }
}

TEST_F(ContourConstructions, TheInsideOfAClosedContourIsTheSameInBothDirections) {
  WriteBytes(folder / "back.txt", Vanzet("contour transform slot.txt --mirror x").out);
  ASSERT_NE(FactsOf("transform back.txt")["direction"], FactsOf("transform slot.txt")["direction"]);
  for (const std::string file : {"slot.txt", "back.txt"}) {
    EXPECT_NEAR(FactsOf("offset " + file + " 2 --inside")["perimeter"], 80 + 16 * kPi, 1e-6) << file;
    EXPECT_NEAR(FactsOf("offset " + file + " 2 --outside")["perimeter"], 80 + 24 * kPi, 1e-6) << file;
  }
  EXPECT_EQ(Fault("offset hook.txt 1 --inside"), "vanzet: contour 4 is open: it has no inside\n");
}

TEST_F(ContourConstructions, AContourThatCollapsesDoesNotStopTheOthers) {
  WriteBytes(folder / "ring.txt", Vanzet("contour circle 0 0 20").out + Vanzet("contour circle 50 0 1").out +
                                      Vanzet("contour circle 90 0 5").out);
  const Outcome run = Vanzet("contour offset ring.txt 3 --inside --method kurveex");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(Json("info", run.out)["contours"].size(), 2U);
  EXPECT_THAT(run.err,
              testing::MatchesRegex(
                  "vanzet: contour 1 (collapses|turns inside out) at 3 mm to the left; it is left out\n"));
  EXPECT_THAT(Fault("offset ring.txt 3 --inside --method kurveex --strict"),
              HasSubstr("at 3 mm to the left\n"));
  EXPECT_THAT(Fault("offset ring.txt 30 --inside --method kurveex"),
              HasSubstr("vanzet: none of the 3 contours has an offset\n"));
}

TEST_F(ContourConstructions, LengthsThatAreNotAreRefused) {
  EXPECT_EQ(Fault("trim hook.txt -5"), "vanzet: the length has to be above 0, found -5\n");
  EXPECT_EQ(Fault("extend hook.txt 0"), "vanzet: the length has to be above 0, found 0\n");
}

TEST_F(ContourConstructions, StepsAreNestedAndNumbered) {
  const auto contours = Json("offset slot.txt 2 --right --steps 3")["contours"];
  ASSERT_EQ(contours.size(), 3U);
  EXPECT_EQ(contours[2]["number"], 3);
  EXPECT_EQ(contours[0]["start"][1], 8);
  EXPECT_EQ(contours[2]["start"][1], 4);
  EXPECT_EQ(Json("offset hook.txt 1")["contours"][0]["number"], 4) << "one keeps its number";
}

TEST_F(ContourConstructions, StepsEndWhereNothingIsLeft) {
  const Outcome run = Vanzet("contour offset slot.txt 4 --right --steps 9");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(Json("info", run.out)["contours"].size(), 2U);
  EXPECT_THAT(run.err, testing::MatchesRegex("vanzet: contour 1 (collapses|turns inside out) at 12 mm to the "
                                             "right; only 2 of 9 offsets were made\n"));
  EXPECT_THAT(Fault("offset slot.txt 12 --right"), HasSubstr("at 12 mm to the right"));
}

TEST_F(ContourConstructions, TrimsAndExtends) {
  EXPECT_NEAR(FactsOf("trim hook.txt 2.5")["perimeter"], 17.5, 1e-9);
  EXPECT_NEAR(FactsOf("trim hook.txt 2.5 --at both")["perimeter"], 15, 1e-9);
  EXPECT_NEAR(FactsOf("trim slot.txt 5 --from 0,12 --at start")["perimeter"], 75 + 20 * kPi, 1e-9);
  EXPECT_NEAR(FactsOf("extend hook.txt 2.5 --at start")["box"]["low"][0], -2.5, 1e-9);
  EXPECT_EQ(Fault("trim slot.txt 5"),
            "vanzet: contour 1 is closed: give the place where to open it with --from\n");
  EXPECT_EQ(Fault("extend slot.txt 5"), "vanzet: contour 1 is closed: it has no ends\n");
  EXPECT_NEAR(FactsOf("trim two.txt 2", 1)["perimeter"], 7, 1e-9) << "of each contour";
}

TEST_F(ContourConstructions, SectionsAndBlends) {
  EXPECT_NEAR(FactsOf("section slot.txt 10 10 0 10")["perimeter"], 70 + 20 * kPi, 1e-9);
  EXPECT_NEAR(FactsOf("blend square.txt 20 20 3")["area"], 1600 - (4 - kPi) * (3 * 64 + 9) / 4, 1e-6);
  EXPECT_EQ(Fault("blend square.txt 20 20 300"),
            "vanzet: no arc of radius 300 mm fits between its neighbours\n");
  EXPECT_EQ(Fault("blend two.txt 0 0 3"),
            "vanzet: two.txt: the file has 2 contours; choose one with --contour\n");
}

TEST_F(ContourConstructions, EqualisesTwoContours) {
  const auto contours = Json("equalise slot.txt hook.txt --svg eq.svg")["contours"];
  ASSERT_EQ(contours.size(), 2U);
  EXPECT_EQ(contours[0]["spans"].size(), contours[1]["spans"].size());
  EXPECT_THAT(ReadBytes(folder / "eq.svg"), HasSubstr("stroke-dasharray"));
  WriteBytes(folder / "three.txt", "k1 e x0 y0\nx5 y0\nx6 y0\nx9 y0\nek\n");
  EXPECT_EQ(Json("equalise hook.txt three.txt")["contours"][0]["spans"].size(), 3U) << "copies";
  EXPECT_GT(Json("equalise hook.txt three.txt --force")["contours"][0]["spans"].size(), 3U);
  EXPECT_EQ(Fault("equalise slot.txt two.txt"),
            "vanzet: two.txt: the file has 2 contours; choose one with --contour\n");
}

TEST_F(ContourConstructions, TellsTheMotionBetweenEqualShapes) {
  WriteBytes(folder / "moved.txt", Vanzet("contour transform slot.txt --turn 30 --move 5,-7").out);
  EXPECT_EQ(Vanzet("contour same slot.txt moved.txt").out,
            "the contours have the same shape\n  turn    30.0000 degrees\n  move    5.0000, -7.0000\n");
  WriteBytes(folder / "mirrored.txt", Vanzet("contour transform hook.txt --mirror x --turn 90").out);
  EXPECT_EQ(Vanzet("contour same hook.txt mirrored.txt").out, "the contours do not have the same shape\n");
  const Outcome different = Vanzet("contour same hook.txt mirrored.txt --json");
  EXPECT_EQ(nlohmann::json::parse(different.out)["same"], false);
  EXPECT_EQ(different.status, 3) << "for a shell";
  const auto motion = Json("same hook.txt mirrored.txt --mirror --svg same.svg");
  EXPECT_EQ(motion["mirrored"], true);
  EXPECT_NEAR(motion["turn"], 90, 1e-6);
  EXPECT_THAT(Vanzet("contour same hook.txt mirrored.txt --mirror").out,
              HasSubstr("  mirror  at the x axis\n"));
  EXPECT_THAT(ReadBytes(folder / "same.svg"), EndsWith("</svg>\n"));
}

TEST_F(ContourConstructions, MakesEllipsesAndBiarcs) {
  EXPECT_NEAR(FactsOf("ellipse 1 2 30 20 --turn 90 --scale 2")["area"], 2400 * kPi, 2);
  EXPECT_EQ(FactsOf("biarc 0 0 90 40 0 -60 --svg biarc.svg")["arcs"], 2);
  EXPECT_EQ(Fault("biarc 6 0 0 0 0 0"), "vanzet: no biarc joins these two directions\n");
  EXPECT_EQ(Fault("ellipse 0 0 1 0"), "vanzet: both radii have to be more than 0.005 mm\n");
}

TEST_F(ContourConstructions, PicturesHaveALegend) {
  EXPECT_EQ(Vanzet("contour offset slot.txt 2 --svg slot.svg --numbers").status, 0);
  const std::string svg = ReadBytes(folder / "slot.svg");
  EXPECT_THAT(svg, HasSubstr(">contour</text>"));
  EXPECT_THAT(svg, HasSubstr(">offset</text>"));
  EXPECT_EQ(Vanzet("contour transform slot.txt --turn 9 --svg slot.svg").status, 0);
  EXPECT_THAT(ReadBytes(folder / "slot.svg"), HasSubstr(">before</text>"));
}

TEST_F(ContourConstructions, PicturesToScaleAreAsLargeAsTheContours) {
  // The slot is 60 long and 20 high, its ends half circles.
  EXPECT_EQ(Vanzet("contour transform slot.txt --move 100,50 --svg slot.svg --to-scale").status, 0);
  const std::string svg = ReadBytes(folder / "slot.svg");
  EXPECT_THAT(svg, HasSubstr("width=\"60mm\" height=\"20mm\""));
  EXPECT_THAT(svg, HasSubstr(" viewBox=\"70 -60 60 20\""));
  EXPECT_THAT(svg, HasSubstr("<g transform=\"scale(1 -1)\""));
  EXPECT_THAT(svg, testing::Not(HasSubstr("before")));
  EXPECT_EQ(Vanzet("contour transform slot.txt --svg slot.svg --to-scale --numbers").status, 2);
  EXPECT_EQ(Vanzet("contour transform slot.txt --to-scale").status, 2);
}

TEST_F(ContourConstructions, ADrawingIsWrittenAndReadBack) {
  EXPECT_EQ(Vanzet("contour offset square.txt 2 --steps 3 --dxf made.dxf").status, 0);
  const auto drawn = Json("info made.dxf")["contours"];
  ASSERT_EQ(drawn.size(), 3U);
  for (std::size_t i = 0; i < 3; ++i) {
    const double r = 8 - 2 * (static_cast<double>(i) + 1);
    EXPECT_NEAR(drawn[i]["perimeter"], 96 + 2 * kPi * r, 1e-9);
    EXPECT_EQ(drawn[i]["arcs"], 4);
  }
  EXPECT_THAT(Fault("circle 0 0 5 --dxf missing/made.dxf"), HasSubstr("missing/made.dxf: cannot be written"));
  EXPECT_THAT(Fault("circle 0 0 5 --dxf /dev/full"), HasSubstr("/dev/full"));
}

TEST_F(ContourConstructions, XmlIsWrittenAndReadBack) {
  WriteBytes(folder / "slot.XML", Vanzet("contour xml slot.txt").out);
  EXPECT_EQ(Vanzet("contour info slot.XML").out, Vanzet("contour info slot.txt").out);
  EXPECT_EQ(Vanzet("contour transform slot.XML").out, Vanzet("contour transform slot.txt").out);
  WriteBytes(folder / "working.xml", Vanzet("contour xml slot.txt --form kurveex").out);
  EXPECT_EQ(Fault("info working.xml"),
            "vanzet: working.xml:3: a KURVEEX cannot be read back; only a KURVE can\n");
  WriteBytes(folder / "cut.xml", Vanzet("contour xml slot.txt").out.substr(0, 300));
  EXPECT_EQ(Fault("info cut.xml"),
            "vanzet: cut.xml:3: the KURVE is cut short, or one of its elements lacks something\n");
  EXPECT_EQ(Fault("info none.xml"), "vanzet: none.xml: cannot be read\n");
}

TEST_F(ContourConstructions, TextFormsOfTheLibrary) {
  EXPECT_EQ(Vanzet("contour text slot.txt").out, Vanzet("contour transform slot.txt").out);
  EXPECT_THAT(Vanzet("contour text slot.txt --form report").out,
              StartsWith("# Number of Spans = 4 (Closed)\n"));
  EXPECT_THAT(Vanzet("contour text slot.txt --form vertices").out, HasSubstr("contour1.Start("));
  EXPECT_THAT(Vanzet("contour text slot.txt --form spans").out, HasSubstr("// vertex 4\n"));
  WriteBytes(folder / "odd.txt", "k1 e x1 y1\nhello\nx5 y1\nek\n");
  EXPECT_THAT(Fault("text odd.txt"), HasSubstr("odd.txt:2:1: expected a vertex"));
  EXPECT_EQ(Json("text odd.txt --reader library")["contours"][0]["start"], nlohmann::json({1.0, 1.0}));
  EXPECT_EQ(Fault("text none.txt --reader library"), "vanzet: none.txt: cannot be read\n");
}

TEST_F(ContourConstructions, AFullStandardOutputIsAFault) {
  for (const char* arguments :
       {"offset slot.txt 1", "xml slot.txt", "text slot.txt", "same slot.txt slot.txt",
        "equalise slot.txt hook.txt", "ellipse 0 0 2 1 --json"}) {
    const Outcome run = Vanzet("contour " + std::string(arguments) + " >/dev/full");
    EXPECT_EQ(run.status, 1) << arguments;
    EXPECT_EQ(run.err, "vanzet: standard output cannot be written\n") << arguments;
  }
}

TEST_F(ContourConstructions, NumbersHaveAPointUnderEveryLocale) {
  const std::string german = "LC_ALL=de_DE.UTF-8 LOCPATH='" VANZET_BINARY_DIR "/locales'";
  for (const char* arguments : {"offset slot.txt 0.5", "xml hook.txt", "text hook.txt --form report",
                                "trim slot.txt 1.5 --from 0.5,12", "text slot.txt --form vertices"}) {
    EXPECT_EQ(Vanzet("contour " + std::string(arguments), german).out,
              Vanzet("contour " + std::string(arguments)).out)
        << arguments;
  }
}

TEST_F(ContourConstructions, WrongUsageHasTheStatusTwo) {
  for (const char* arguments : {"offset slot.txt",
                                "offset slot.txt 1 --left --right",
                                "offset slot.txt 1 --method fast",
                                "offset slot.txt 1 --steps 0",
                                "offset slot.txt 1 --steps many",
                                "trim slot.txt 1 --at middle",
                                "trim slot.txt 1 --from 5",
                                "trim slot.txt 1 --from 5,x",
                                "extend slot.txt 1 --from 0,0",
                                "section slot.txt 1 2 3",
                                "blend slot.txt 1 2",
                                "equalise slot.txt",
                                "equalise - -",
                                "same slot.txt slot.txt --dxf x.dxf",
                                "biarc 1 2 3 4 5",
                                "ellipse 1 2 3",
                                "xml slot.txt --form json",
                                "text slot.txt --form poem",
                                "text slot.txt --reader kind",
                                "info slot.txt --dxf x.dxf"}) {
    const Outcome run = Vanzet(std::string("contour ") + arguments);
    EXPECT_EQ(run.status, 2) << arguments;
    EXPECT_NE(run.err, "") << arguments;
    EXPECT_EQ(run.out, "") << arguments;
  }
}

TEST_F(ContourConstructions, TheCompletionKnowsOperationsAndTheirOptions) {
  const std::string bash = Vanzet("completion bash").out;
  for (const char* words : {"offset", "equalise", "--method", "--steps", "--from", "--dxf", "--reader"}) {
    EXPECT_THAT(bash, HasSubstr(words));
  }
}

}  // namespace
}  // namespace vanzet::test
