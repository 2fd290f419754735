#include <sys/resource.h>

#include "language_fixture.h"

namespace vanzet::language {
namespace {

constexpr const char* kSample = "vdm 1\nrecord\n.a\n.b\nend 1\n";
constexpr const char* kOther = "vdm 1\nrecord\n.other\nend 1\n";

class VdmCommands : public LanguageTest {
 protected:
  std::string Line(const std::string& verb, const std::string& file, const std::string& rest) const {
    return "vdm " + verb + " '" + (folder / file).string() + "' " + rest;
  }

  /// Puts the text of a VDM under a number.
  void Keep(const std::string& text, const std::string& number) {
    test::WriteBytes(folder / "kept.vdm", text);
    ASSERT_TRUE(Do(Line("load", "kept.vdm", "i_ret " + number)));
  }
  std::string Kept(const std::string& number) {
    const auto saved = Do(Line("save", "out.vdm", "i_ret " + number));
    return saved ? test::ReadBytes(folder / "out.vdm") : saved.fault().Message();
  }
};

TEST_F(VdmCommands, LoadAndSaveByNumberAndByVariable) {
  test::WriteBytes(folder / "in.vdm", kSample);
  ASSERT_TRUE(variables.Set("i_ret", 5));
  EXPECT_TRUE(Do(Line("load", "in.vdm", "i_ret 1000")));
  EXPECT_EQ(variables.Integer("i_ret"), 0);
  ASSERT_TRUE(variables.Set("i_ret", 5));
  EXPECT_TRUE(Do(Line("save", "out.vdm", "i_ret i_billet_vdm")));
  EXPECT_EQ(variables.Integer("i_ret"), 0);
  EXPECT_EQ(test::ReadBytes(folder / "out.vdm"), kSample);
}

TEST_F(VdmCommands, TakeABackslashForASeparator) {
  test::WriteBytes(folder / "sub/in.vdm", kSample);
  EXPECT_TRUE(Do("vdm load '" + folder.path().string() + "\\SUB\\in.vdm' i_ret 7"));
  EXPECT_EQ(Kept("7"), kSample);
}

TEST_F(VdmCommands, LoadReplacesWhatTheNumberHeld) {
  Keep(kSample, "7");
  Keep(kOther, "7");
  EXPECT_EQ(Kept("7"), kOther);
}

TEST_F(VdmCommands, ALoadThatFailsLeavesNoVdmAndSetsMinusOne) {
  Keep(kSample, "7");
  test::WriteBytes(folder / "bad.vdm", "vdm 1\nrecord\n");
  const auto loaded = Do(Line("load", "bad.vdm", "i_ret 7"));
  ASSERT_FALSE(loaded);
  EXPECT_EQ(loaded.fault().file, (folder / "bad.vdm").string());
  EXPECT_EQ(variables.Integer("i_ret"), -1);
  EXPECT_FALSE(*store.Exists(7));
}

TEST_F(VdmCommands, ALoadOfABrokenFilePutsBackWhatWasDeletedForIt) {
  Keep(kSample, "7");
  test::WriteBytes(folder / "bad.vdm", "vdm 1\nrecord\n");
  ASSERT_TRUE(store.Delete(7));
  ASSERT_FALSE(Do(Line("load", "bad.vdm", "i_ret 7")));
  EXPECT_EQ(variables.Integer("i_ret"), -1);
  EXPECT_EQ(Kept("7"), kSample);
}

TEST_F(VdmCommands, ALoadOfAFileThatCannotBeReadDeletesNothing) {
  Keep(kSample, "7");
  test::WriteBytes(folder / "in.vdm", kOther);
  rlimit usual = {};
  ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &usual), 0);
  const rlimit none = {.rlim_cur = 0, .rlim_max = usual.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
  const auto loaded = Do(Line("load", "in.vdm", "i_ret 7"));
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &usual), 0);
  ASSERT_FALSE(loaded);
  EXPECT_EQ(variables.Integer("i_ret"), -1);
  EXPECT_EQ(Kept("7"), kSample);
}

TEST_F(VdmCommands, ALoadOverAnOpenVdmFailsAndLeavesIt) {
  Keep(kSample, "7");
  const auto handle = store.Open(7);
  ASSERT_TRUE(handle);
  test::WriteBytes(folder / "in.vdm", kOther);
  EXPECT_FALSE(Do(Line("load", "in.vdm", "i_ret 7")));
  EXPECT_EQ(variables.Integer("i_ret"), -1);
  store.Close(*handle);
  EXPECT_EQ(Kept("7"), kSample);
}

TEST_F(VdmCommands, ASaveOfAMissingVdmFailsAndSetsMinusOne) {
  test::WriteBytes(folder / "out.vdm", "old");
  EXPECT_FALSE(Do(Line("save", "out.vdm", "i_ret 7")));
  EXPECT_EQ(variables.Integer("i_ret"), -1);
  EXPECT_EQ(test::ReadBytes(folder / "out.vdm"), "old");
}

TEST_F(VdmCommands, ALineThatIsWrongChangesNothing) {
  Keep(kSample, "1000");
  ASSERT_TRUE(variables.Set("i_ret", 5));
  for (const char* line :
       {"vdm load", "vdm load x.vdm i_ret 7", "vdm load 'x.vdm' w_ret 7", "vdm load 'x.vdm' i_ret",
        "vdm load 'x.vdm' i_ret seven", "vdm load 'x.vdm' i_ret i_none", "vdm load 'x.vdm' i_ret 1000 more",
        "vdm", "vdm delete 1000", "", "rubbish"}) {
    const auto run = Do(line);
    ASSERT_FALSE(run) << line;
    EXPECT_GT(run.fault().column, 0) << line;
    EXPECT_EQ(variables.Integer("i_ret"), 5) << line;
  }
  EXPECT_EQ(Kept("1000"), kSample);
}

TEST_F(VdmCommands, AreKnownByTheirWholeWordsOnly) {
  EXPECT_EQ(Do("vdmload 'x' i_ret 7").fault().text, "unknown command 'vdmload 'x' i_ret 7'");
  EXPECT_EQ(Outcome("vdm loads 'x' i_ret 7"),
            "5: expected one of 'load', 'save' after 'vdm', found 'loads 'x' i_ret 7'");
}

TEST_F(VdmCommands, RefuseNumbersThatNoVdmCanHave) {
  test::WriteBytes(folder / "in.vdm", kSample);
  EXPECT_FALSE(Do(Line("load", "in.vdm", "i_ret -5")));
  EXPECT_EQ(variables.Integer("i_ret"), -1);
}

}  // namespace
}  // namespace vanzet::language
