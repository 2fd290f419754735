#include <nlohmann/json.hpp>

#include "run_vanzet.h"

#include "support/places.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr const char* kChuck =
    "win 0\ns100=h 0\ns101=v 0\ns102=h 100.000000\ns103=v -50.000000\np100=s100 s101\n"
    "k30000 p100 as100 ts103 ts102 as101 p100 ek\ndel s100>103 p100\nfig cre Chuck x0y0z0\n"
    "figure append Chuck k30000\nset m1\nwin 1\nfig ins Chuck m1\n";

class DrawingCommands : public CommandLineTest {
 protected:
  void DrawChuck() {
    MakeProject();
    const Outcome drawn = Vanzet("command lathe -", "", kChuck);
    ASSERT_EQ(drawn.status, 0) << drawn.err;
  }
  /// Width and height that the head of a PNG file tells.
  static std::pair<int, int> SizeOfPng(const std::string& bytes) {
    const auto number = [&](std::size_t at) {
      return static_cast<unsigned char>(bytes[at + 2]) * 256 + static_cast<unsigned char>(bytes[at + 3]);
    };
    return {number(16), number(20)};
  }
};

TEST_F(DrawingCommands, WhatOneProcessDrawsTheNextOnePictures) {
  DrawChuck();
  const Outcome pictured = Vanzet("picture lathe --out chuck.svg");
  EXPECT_EQ(pictured.status, 0) << pictured.err;
  EXPECT_EQ(pictured.out, "chuck.svg\n");
  EXPECT_THAT(ReadBytes(folder / "chuck.svg"), HasSubstr("d=\"M0 0 L-50 0 L-50 100 L0 100 L0 0 Z\""));
}

TEST_F(DrawingCommands, PicturesAreListedOrGoToStandardOutput) {
  DrawChuck();
  const Outcome listed = Vanzet("picture lathe --out chuck.svg --json");
  EXPECT_EQ(nlohmann::json::parse(listed.out, nullptr, false),
            nlohmann::json::parse(R"({"files":[{"path":"chuck.svg","bodies":[]}]})"));
  EXPECT_TRUE(Vanzet("picture lathe --out -").out == ReadBytes(folder / "chuck.svg"));
  EXPECT_FALSE(std::filesystem::exists(folder / "-"));
  EXPECT_EQ(Vanzet("picture lathe --out - --json").status, 2);
}

TEST_F(DrawingCommands, OptionsOfTheOtherViewAreRefused) {
  DrawChuck();
  for (const std::string option :
       {"--spur 0", "--camera top", "--perspective", "--section", "--fit jaw", "--without jaw", "--strict"}) {
    const Outcome refused = Vanzet("picture lathe --out a.svg " + option);
    EXPECT_EQ(refused.status, 2) << option;
    EXPECT_THAT(refused.err, HasSubstr(option.substr(0, option.find(' '))));
    EXPECT_THAT(refused.err, HasSubstr("has no effect with --view drawing"));
  }
  for (const std::string option : {"--window display", "--layers 0"}) {
    const Outcome refused = Vanzet("picture lathe --view equipment --out a.png " + option);
    EXPECT_EQ(refused.status, 2) << option;
    EXPECT_THAT(refused.err, HasSubstr("has no effect with --view equipment"));
  }
}

TEST_F(DrawingCommands, TheConstructionWindowShowsTheContoursThatStand) {
  DrawChuck();
  ASSERT_EQ(Vanzet("command lathe 'fig del Chuck yes'").status, 0);
  ASSERT_EQ(Vanzet("picture lathe --out a.svg").status, 0);
  EXPECT_THAT(ReadBytes(folder / "a.svg"), Not(HasSubstr("L-50 100")));
  ASSERT_EQ(Vanzet("picture lathe --out a.svg --window construction").status, 0);
  EXPECT_THAT(ReadBytes(folder / "a.svg"), HasSubstr("L-50 100"));
}

TEST_F(DrawingCommands, PicturesArePngsOfTheSizeThatIsAskedFor) {
  DrawChuck();
  ASSERT_EQ(Vanzet("picture lathe --out chuck.png --width 320 --height 200").status, 0);
  const std::string bytes = ReadBytes(folder / "chuck.png");
  ASSERT_THAT(bytes, StartsWith("\x89PNG\r\n"));
  EXPECT_EQ(SizeOfPng(bytes), std::pair(320, 200));
  ASSERT_EQ(Vanzet("picture lathe --out other.PNG --width 1000").status, 0);
  EXPECT_EQ(SizeOfPng(ReadBytes(folder / "other.PNG")).first, 1000);
}

TEST_F(DrawingCommands, PicturesAreWholeAndLeaveNothingBeside) {
  DrawChuck();
  WriteBytes(folder / "old.svg", "old");
  std::filesystem::permissions(folder / "old.svg", std::filesystem::perms::owner_read);
  EXPECT_THAT(Vanzet("picture lathe --out old.svg").err, HasSubstr("old.svg: is read-only"));
  EXPECT_EQ(ReadBytes(folder / "old.svg"), "old");
  EXPECT_EQ(Vanzet("picture lathe --out no/such/a.svg").status, 1);
  EXPECT_THAT(Vanzet("picture lathe --out a.svg --layers 0,None").err,
              HasSubstr("layer 'None' does not exist; the layers are: 0"));
  ASSERT_EQ(Vanzet("command lathe \"lay ch 'Billet_Spindel_1'\"").status, 0);
  EXPECT_THAT(Vanzet("picture lathe --out a.svg --layers Billet_Spindle_1").err,
              HasSubstr("layer 'Billet_Spindle_1' does not exist; did you mean Billet_Spindel_1?"));
  EXPECT_FALSE(std::filesystem::exists(folder / "a.svg"));
}

TEST_F(DrawingCommands, EquipmentThatIsNotThereIsTold) {
  MakeProjectWithoutDefinitions();
  const Outcome pictured = Vanzet("picture lathe --view equipment --out a.png");
  EXPECT_EQ(pictured.status, 1);
  EXPECT_EQ(pictured.err, "vanzet: spur 0 has no definition yet; 'vanzet upgrade' creates it\n");
  EXPECT_THAT(Vanzet("picture lathe --view equipment --out a.svg").err, HasSubstr("can only be a .png file"));
}

TEST_F(DrawingCommands, WrongUsageHasTheStatusTwo) {
  MakeProject();
  for (const char* arguments : {"picture lathe", "picture lathe --out a.jpg", "picture lathe --out ''",
                                "picture lathe --out a.svg --view x", "picture lathe --out a.svg --window 0",
                                "picture lathe --out a.svg --width 5",
                                "picture lathe --out a.svg --height 9000", "command lathe - --picks ''"}) {
    EXPECT_EQ(Vanzet(arguments).status, 2) << arguments;
  }
}

TEST_F(DrawingCommands, ADamagedDrawingIsToldWithItsLine) {
  DrawChuck();
  WriteBytes(folder / "lathe/drawing.txt", "drawing 1\nrubbish\n");
  const Outcome pictured = Vanzet("picture lathe --out a.svg");
  EXPECT_EQ(pictured.status, 1);
  EXPECT_THAT(pictured.err, HasSubstr("drawing.txt:2: expected a layer"));
  EXPECT_EQ(Vanzet("command lathe 'fig cre F x0y0z0'").status, 1);
  EXPECT_EQ(Vanzet("command lathe 'i1215=5'").status, 0) << "a line that does not draw runs";
  EXPECT_EQ(ReadBytes(folder / "lathe/drawing.txt"), "drawing 1\nrubbish\n");
}

TEST_F(DrawingCommands, PicksComeFromAFile) {
  DrawChuck();
  WriteBytes(folder / "picks.txt", "figure Chuck\nfigure None\n");
  const std::string lines =
      "dfm pick i_return i_return2 'Select Figure' 20\ndfm inf i_return2\n"
      "$_return=$_misc\nfig del Chuck yes\ndfm pick i_return i_return2 'Select Figure' 20\n";
  const Outcome run = Vanzet("command lathe - --picks picks.txt", "", lines);
  EXPECT_THAT(run.err, HasSubstr("picks.txt:2: figure 'None' does not exist"));
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(Vanzet("command lathe 'ori' --picks none.txt").err, HasSubstr("none.txt: cannot be read"));
}

TEST_F(DrawingCommands, ManyProcessesAtOnceLoseNothing) {
  MakeProject();
  std::string all;
  for (int i = 0; i < 8; ++i) {
    all += "'" VANZET_PROGRAM "' command lathe 'fig cre F" + std::to_string(i) + " x0y0z0' & ";
  }
  EXPECT_EQ(Vanzet("--version", "{ " + all + " wait; } &&").status, 0);
  for (int i = 0; i < 8; ++i) {
    EXPECT_THAT(ReadBytes(folder / "lathe/drawing.txt"), HasSubstr("figure F" + std::to_string(i) + "\n"));
  }
}

TEST_F(DrawingCommands, ADrawingThatCannotBeKeptIsAFault) {
  MakeProject();
  std::filesystem::create_directory(folder / "lathe/drawing.txt");
  const Outcome run = Vanzet("command lathe 'ori' 'fig cre F x0y0z0'");
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("drawing.txt: not a regular file"));
}

TEST_F(DrawingCommands, PictureTheHalfSectionOfTheSetUp) {
  MakeProject();
  ASSERT_EQ(Vanzet("define " VANZET_SOURCE_DIR "/examples/definitions/bar-job.json lathe").status, 0);
  ASSERT_EQ(Vanzet("picture lathe --view section --out a.svg").out, "a.svg\n");
  const std::string svg = ReadBytes(folder / "a.svg");
  EXPECT_THAT(svg, HasSubstr("data-body=\"main billet\""));
  EXPECT_THAT(svg, HasSubstr(">Clamp diameter Ø42<"));
  EXPECT_THAT(Vanzet("picture lathe --view section --out - --layers billet").out, Not(HasSubstr("<text")));
  const Outcome inch = Vanzet("picture lathe --view section --out b.svg --unit inch --json");
  const auto listed = nlohmann::json::parse(inch.out).at("files").at(0);
  EXPECT_EQ(listed.at("unit"), "inch");
  EXPECT_EQ(listed.at("bodies").at(0).at("name"), "main chuck");
  EXPECT_NEAR(listed.at("bodies").at(0).at("box").at(3).get<double>(), 80 / 25.4, 1e-6);
  EXPECT_EQ(listed.at("dimensions").at(0).at("name"), "Billet length");
  EXPECT_NEAR(listed.at("dimensions").at(0).at("value").get<double>(), 1000 / 25.4, 1e-6);
  const Outcome png = Vanzet("picture lathe --view section --out a.png --width 640");
  EXPECT_EQ(png.err, "");
  EXPECT_EQ(SizeOfPng(ReadBytes(folder / "a.png")).first, 640);
}

TEST_F(DrawingCommands, RefuseForASectionWhatOnlyOtherViewsHave) {
  MakeProject();
  for (const std::string option : {"--camera top", "--section", "--window display", "--fit jaw"}) {
    const Outcome refused = Vanzet("picture lathe --view section --out a.svg " + option);
    EXPECT_EQ(refused.status, 2) << option;
    EXPECT_THAT(refused.err, HasSubstr("has no effect with --view section"));
  }
  EXPECT_THAT(Vanzet("picture lathe --view drawing --out a.svg --unit inch").err,
              HasSubstr("has no effect with --view drawing"));
  EXPECT_THAT(Vanzet("picture lathe --view section --out a.svg").err, HasSubstr("holds no equipment"));
}

}  // namespace
}  // namespace vanzet::test
