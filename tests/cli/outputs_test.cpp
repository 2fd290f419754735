#include "run_vanzet.h"
#include "support/places.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;

/// Outputs that are named like inputs.
class Outputs : public CommandLineTest {
 protected:
  Outputs() { MakeUpgradedProject(); }

  /// The command fails in one line and leaves the file as it was.
  void ExpectKept(const std::string& arguments, const std::string& file) {
    const std::string before = ReadBytes(folder / file);
    const Outcome run = Vanzet(arguments);
    EXPECT_EQ(run.status, 1) << arguments;
    EXPECT_THAT(run.err, HasSubstr("cannot be written: this command reads the file\n")) << arguments;
    EXPECT_TRUE(ReadBytes(folder / file) == before) << arguments;
  }
};

TEST_F(Outputs, OfAScriptReplaceNeitherScriptNorPicks) {
  WriteBytes(folder / "s.txt", "close\n");
  WriteBytes(folder / "p.txt", "cancel\n");
  std::filesystem::create_hard_link(folder / "s.txt", folder / "link.txt");
  ExpectKept("script lathe s.txt --transcript s.txt", "s.txt");
  ExpectKept("script lathe s.txt --transcript link.txt", "s.txt");
  ExpectKept("script lathe s.txt --trace ./s.txt", "s.txt");
  ExpectKept("script lathe s.txt --picks p.txt --transcript lathe/../p.txt", "p.txt");
}

TEST_F(Outputs, OfADefinitionDoNotReplaceItsForm) {
  WriteBytes(folder / "job.json", R"({"spurs":[{"spur":0}]})");
  ExpectKept("define job.json lathe --transcript job.json", "job.json");
  ExpectKept("define job.json lathe --trace job.json", "job.json");
  ExpectKept("define job.json lathe --transcript lathe/bench.ini", "lathe/bench.ini");
}

TEST_F(Outputs, OfOneRunAreTwoFiles) {
  WriteBytes(folder / "s.txt", "close\n");
  WriteBytes(folder / "job.json", R"({"spurs":[{"spur":0}]})");
  for (const std::string command : {"script lathe s.txt", "define job.json lathe"}) {
    const Outcome run = Vanzet(command + " --trace out.jsonl --transcript ./out.jsonl");
    EXPECT_EQ(run.status, 1) << command;
    EXPECT_THAT(run.err, HasSubstr("out.jsonl: cannot be written: another option of this command"))
        << command;
  }
  EXPECT_EQ(Vanzet("script lathe s.txt --trace /dev/null --transcript /dev/null").status, 0);
}

TEST_F(Outputs, ReplaceNoFileThatTheProjectReads) {
  WriteBytes(folder / "s.txt", "close\n");
  WriteBytes(folder / "lathe/bodies/part.stl", "solid part\nendsolid part\n");
  for (const std::string name :
       {"bench.ini", "machine.ini", "clampdevice.cld", "store.db", "bodies/part.stl"}) {
    const std::string file = "lathe/" + name;
    ExpectKept("script lathe s.txt --transcript " + file, file);
    ExpectKept("upgrade lathe --trace " + file, file);
    ExpectKept("vdm save lathe 1000 " + file, file);
  }
  EXPECT_THAT(Vanzet("export lathe --format stl --out lathe/bodies").err,
              HasSubstr("reads its bodies there"));
}

TEST_F(Outputs, ReplaceNoSettingsByAPicture) {
  std::filesystem::create_symlink("bench.ini", folder / "lathe/bench.svg");
  ExpectKept("picture lathe --out lathe/bench.svg", "lathe/bench.ini");
}

TEST_F(Outputs, ReplaceNoContourByItsPictureOrDrawing) {
  WriteBytes(folder / "slot.svg", ReadBytes(VANZET_SOURCE_DIR "/examples/contours/slot.txt"));
  WriteBytes(folder / "slot.dxf", "0\nEOF\n");
  ExpectKept("contour info slot.svg --svg slot.svg", "slot.svg");
  ExpectKept("contour offset slot.dxf 1 --dxf ./slot.dxf", "slot.dxf");
}

TEST_F(Outputs, ReplaceNoModelByADevice) {
  WriteBytes(folder / "m.step", "no model");
  WriteBytes(folder / "o.txt", "no outline");
  ExpectKept("device make --class chuck --body m.step --outline o.txt -o m.step", "m.step");
  ExpectKept("device make --class chuck --body m.step --outline o.txt -o o.txt", "o.txt");
}

}  // namespace
}  // namespace vanzet::test
