#include "run_vanzet.h"
#include "support/golden.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class VdmCommand : public CommandLineTest {
 protected:
  std::string Items() { return Vanzet("items lathe").out; }
};

TEST_F(VdmCommand, SavesAndLoadsADefinition) {
  MakeUpgradedProject();
  const Outcome saved = Vanzet("vdm save lathe 1000 job.vdm");
  EXPECT_EQ(saved.status, 0);
  EXPECT_THAT(saved.out, HasSubstr("saved VDM 1000, 18 records, to "));
  EXPECT_GOLDEN(ReadBytes(folder / "job.vdm"), "cli/definition_new.vdm");
  EXPECT_EQ(Vanzet("vdm load lathe job.vdm 77").status, 0);
  EXPECT_EQ(Vanzet("items lathe --vdm 77").out, Items());
}

TEST_F(VdmCommand, TakesTheProjectFirstOrLastOrFromTheCurrentFolder) {
  MakeUpgradedProject();
  EXPECT_EQ(Vanzet("vdm save lathe 1000 a.vdm").status, 0);
  EXPECT_EQ(Vanzet("vdm save 1000 b.vdm lathe").status, 0);
  EXPECT_EQ(Vanzet("vdm save 1000 ../c.vdm", "cd lathe &&").status, 0);
  EXPECT_EQ(ReadBytes(folder / "a.vdm"), ReadBytes(folder / "b.vdm"));
  EXPECT_EQ(ReadBytes(folder / "a.vdm"), ReadBytes(folder / "c.vdm"));
}

TEST_F(VdmCommand, ChecksAFile) {
  WriteBytes(folder / "a.vdm", "vdm 1\nrecord\n.a\n.b\nrecord\n.c\nend 2\n");
  EXPECT_EQ(Vanzet("vdm check a.vdm").out, "a.vdm: 2 records, 3 items\n");
  EXPECT_THAT(Vanzet("vdm check a.vdm --json").out, HasSubstr("\"items\": 3"));
}

TEST_F(VdmCommand, AcceptsCarriageReturnsAtLineEnds) {
  WriteBytes(folder / "a.vdm", "vdm 1\r\nrecord\r\n.a\r\nend 1\r\n");
  EXPECT_EQ(Vanzet("vdm check a.vdm").out, "a.vdm: 1 record, 1 item\n");
}

TEST_F(VdmCommand, RefusesABadFileByFileAndLineAndLeavesTheVdm) {
  MakeUpgradedProject();
  const std::string before = Items();
  struct Case {
    std::string text;
    const char* line;
  };
  for (const Case& c : {Case{"vdm 2\nend 0\n", ":1: "}, Case{"vdm 1\nrecord\n", ":3: "}, Case{"", ":1: "},
                        Case{"vdm 1\nrecord\n.a\nend 2\n", ":4: "},
                        Case{"vdm 1\nrecord\n." + std::string(5000, 'x') + "\nend 1\n", ":3: "},
                        Case{std::string("vdm 1\nrecord\n.a\0b\nend 1\n", 24), ":3: "}}) {
    WriteBytes(folder / "bad.vdm", c.text);
    const Outcome loaded = Vanzet("vdm load lathe bad.vdm 1000");
    EXPECT_EQ(loaded.status, 1);
    EXPECT_THAT(loaded.err, HasSubstr(std::string("bad.vdm") + c.line));
    EXPECT_EQ(std::ranges::count(loaded.err, '\n'), 1) << loaded.err;
    EXPECT_EQ(Items(), before);
    EXPECT_EQ(Vanzet("vdm check bad.vdm").status, 1);
  }
}

TEST_F(VdmCommand, RefusesADefinitionThatIsCutShortAnywhere) {
  MakeUpgradedProject();
  const std::string before = Items();
  Vanzet("vdm save lathe 1000 whole.vdm");
  const std::string whole = ReadBytes(folder / "whole.vdm");
  for (std::size_t length = 0; length < whole.size(); length += 37) {
    WriteBytes(folder / "cut.vdm", whole.substr(0, length));
    const Outcome loaded = Vanzet("vdm load lathe cut.vdm 1000");
    EXPECT_EQ(loaded.status, 1) << length;
    EXPECT_THAT(loaded.err, HasSubstr("cut.vdm:")) << length;
  }
  EXPECT_EQ(Items(), before);
}

TEST_F(VdmCommand, TellsWhatItCannotFindOrRead) {
  MakeUpgradedProject();
  EXPECT_THAT(Vanzet("vdm save lathe 5 x.vdm").err, HasSubstr("VDM 5"));
  EXPECT_FALSE(std::filesystem::exists(folder / "x.vdm"));
  EXPECT_THAT(Vanzet("vdm load lathe none.vdm 5").err, HasSubstr("none.vdm"));
  EXPECT_EQ(Vanzet("items lathe --vdm 5").status, 1);
}

TEST_F(VdmCommand, DoesNotWriteOverTheStore) {
  MakeUpgradedProject();
  for (const char* file : {"lathe/store.db", "lathe/../lathe/store.lock"}) {
    EXPECT_THAT(Vanzet(std::string("vdm save lathe 1000 ") + file).err,
                HasSubstr("cannot be written: this command reads the file"));
  }
  EXPECT_EQ(Vanzet("show lathe").status, 0);
}

}  // namespace
}  // namespace vanzet::test
