#include "api/exports.h"

#include <dlfcn.h>

#include <limits>

#include "api/host_fixture.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class Exports : public HostTest {
 protected:
  Exports()
      : HostTest(
            "[environment]\nSubSpindleAvailable=1\n[variables]\nw_x=2.5\n$_x=a text\n[language]\n"
            "messages=de\n") {}

  std::string ReadText(const char* name, std::int32_t* ok) {
    char buffer[4096];
    OrvoReadGlobalText(name, buffer, ok);
    return buffer;
  }
};

TEST_F(Exports, AreFoundByTheirExactNamesInTheRunningProgram) {
  for (const char* name : {"OrvoMissingAPI",
                           "OrvoEnvironment",
                           "OrvoStrMessage",
                           "OrvoGetWnd",
                           "OrvoCommand",
                           "OrvoReadGlobalI",
                           "OrvoReadGlobalW",
                           "OrvoReadGlobal$",
                           "OrvoWriteGlobalI",
                           "OrvoWriteGlobal$",
                           "OrvoGetStructPtr",
                           "OrvoMacroVdmExists",
                           "OrvoMacroVdmCreate",
                           "OrvoMacroVdmOpen",
                           "OrvoMacroVdmCheckOpen",
                           "OrvoMacroVdmClose",
                           "OrvoMacroVdmDelete",
                           "OrvoMacroVdmSize",
                           "OrvoMacroVdmSeek",
                           "OrvoMacroVdmInsert$",
                           "OrvoMacroVdmRemove",
                           "OrvoMacroVdmSingleSeek",
                           "OrvoMacroVdmSingleGet$",
                           "OrvoMacroVdmSingleAdd$",
                           "OrvoMacroVdmSingleReplace$",
                           "OrvoMacroVdmSingleDelete"}) {
    EXPECT_NE(dlsym(RTLD_DEFAULT, name), nullptr) << name;
  }
}

TEST_F(Exports, GiveTheEnvironment) {
  EXPECT_STREQ(OrvoEnvironment("SubSpindleAvailable"), "1");
  EXPECT_EQ(OrvoEnvironment("ppdefini"), (project->folder() / "machine.ini").string());
  EXPECT_STREQ(OrvoEnvironment("NoSuchKey"), "");
  EXPECT_STREQ(OrvoEnvironment(nullptr), "");
}

TEST_F(Exports, GiveEachRunAFolderForItsFilesAndRemoveIt) {
  const std::filesystem::path run = OrvoEnvironment("TMP");
  EXPECT_EQ(run.parent_path(), project->folder() / "tmp");
  EXPECT_STREQ(OrvoEnvironment("TMP"), run.c_str());
  WriteBytes(run / "tmpclamp.wrl", "x");
  Restart();
  EXPECT_FALSE(std::filesystem::exists(run));
}

TEST_F(Exports, ReportARunWithoutAFolder) {
  WriteBytes(folder / "tmp", "no folder");
  EXPECT_STREQ(OrvoEnvironment("TMP"), "");
  EXPECT_EQ(panel.lines.size(), 1U);
}

TEST_F(Exports, GiveTextsInTheProjectsLanguageOrTheDefault) {
  EXPECT_STREQ(OrvoStrMessage(5, 704, "Mainspindle"), "Hauptspindel");
  EXPECT_STREQ(OrvoStrMessage(5, 999999, "a default"), "a default");
  EXPECT_STREQ(OrvoStrMessage(4, 704, "of another group"), "of another group");
  EXPECT_STREQ(OrvoStrMessage(5, 999999, nullptr), "");
}

TEST_F(Exports, HaveNoWindow) {
  EXPECT_EQ(OrvoGetWnd(2), nullptr);
}

TEST_F(Exports, HaveAStructureWhoseSecondMemberIsTheMissingWindow) {
  void* const* const structure = static_cast<void**>(OrvoGetStructPtr("DLLVARSXX"));
  ASSERT_NE(structure, nullptr);
  EXPECT_EQ(structure[1], nullptr);
  EXPECT_EQ(OrvoGetStructPtr("OTHER"), nullptr);
  EXPECT_THAT(panel.lines, ElementsAre("structure 'OTHER' does not exist"));
}

TEST_F(Exports, ReadVariablesByTheirType) {
  std::int32_t ok = 0;
  EXPECT_EQ(OrvoReadGlobalI("i_billet_vdm", &ok), 1000);
  EXPECT_EQ(ok, 1);
  EXPECT_EQ(OrvoReadGlobalW("w_x", &ok), 2.5);
  EXPECT_EQ(ok, 1);
  EXPECT_EQ(ReadText("$_x", &ok), "a text");
  EXPECT_EQ(ok, 1);
}

TEST_F(Exports, SayWhenAVariableCannotBeRead) {
  std::int32_t ok = 1;
  EXPECT_EQ(OrvoReadGlobalI("i_none", &ok), 0);
  EXPECT_EQ(ok, 0);
  ok = 1;
  EXPECT_EQ(OrvoReadGlobalW("i_billet_vdm", &ok), 0.0) << "of another type";
  EXPECT_EQ(ok, 0);
  ok = 1;
  EXPECT_EQ(ReadText("$_none", &ok), "");
  EXPECT_EQ(ok, 0);
}

TEST_F(Exports, WriteVariables) {
  std::int32_t ok = 0;
  OrvoWriteGlobalI("i_diaprg", 1, &ok);
  EXPECT_EQ(ok, 1);
  EXPECT_EQ(host->variables.Integer("i_diaprg"), 1);
  OrvoWriteGlobalText("$_helptopic", "mat_vanzet53", &ok);
  EXPECT_EQ(ok, 1);
  EXPECT_EQ(host->variables.Text("$_helptopic"), "mat_vanzet53");
}

TEST_F(Exports, RefuseToWriteAVariableOfAnotherType) {
  std::int32_t ok = 1;
  OrvoWriteGlobalI("w_x", 1, &ok);
  EXPECT_EQ(ok, 0);
  EXPECT_EQ(host->variables.Real("w_x"), 2.5);
  EXPECT_THAT(panel.lines, ElementsAre(HasSubstr("w_x")));
}

TEST_F(Exports, CutATextThatIsTooLongForItsReader) {
  ASSERT_TRUE(host->variables.Set("$_x", std::string(5000, 'x')));
  std::int32_t ok = 0;
  EXPECT_EQ(ReadText("$_x", &ok), std::string(4095, 'x'));
}

TEST_F(Exports, TolerateNullPointers) {
  OrvoReadGlobalI(nullptr, nullptr);
  OrvoReadGlobalW("w_x", nullptr);
  OrvoReadGlobalText("$_x", nullptr, nullptr);
  OrvoWriteGlobalI(nullptr, 1, nullptr);
  OrvoWriteGlobalText("$_x", nullptr, nullptr);
  OrvoCommand(nullptr);
  EXPECT_EQ(host->variables.Text("$_x"), "");
}

TEST_F(Exports, ReportALineThatCannotBeRunWithItsColumn) {
  OrvoCommand("vdm load x");
  EXPECT_THAT(panel.lines, ElementsAre("'vdm load x':10: expected the file in single quotes"));
}

TEST_F(Exports, ReportALineWhoseFileIsWrongWithTheLine) {
  OrvoCommand("vdm load '/no/such.vdm' i_ret 7");
  EXPECT_THAT(panel.lines, ElementsAre("'vdm load '/no/such.vdm' i_ret 7': /no/such.vdm: cannot be read"));
}

TEST_F(Exports, RunLinesOfTheMacroLanguage) {
  const std::string file = (folder / "x.vdm").string();
  WriteBytes(file, "vdm 1\nrecord\n.a\nend 1\n");
  OrvoCommand(("vdm load '" + file + "' i_ret 7").c_str());
  EXPECT_EQ(OrvoMacroVdmExists(7), 1);
  EXPECT_THAT(panel.lines, IsEmpty());
}

TEST_F(Exports, ReplaceMissingFunctionsWithZeroOfEveryKind) {
  void* const missing = reinterpret_cast<void*>(OrvoMissingAPI);
  EXPECT_EQ(reinterpret_cast<std::int32_t (*)(const char*, int)>(missing)("x", 1), 0);
  EXPECT_EQ(reinterpret_cast<double (*)(double)>(missing)(3.5), 0.0);
  EXPECT_EQ(reinterpret_cast<const char* (*)()>(missing)(), nullptr);
  EXPECT_EQ(panel.lines.size(), 3U) << "reported once for each call";
}

TEST(ExportsWithoutAHost, DoNothing) {
  std::int32_t ok = 1;
  EXPECT_STREQ(OrvoEnvironment("-d"), "");
  EXPECT_STREQ(OrvoStrMessage(5, 704, "x"), "");
  EXPECT_EQ(OrvoReadGlobalI("i_billet_vdm", &ok), 0);
  EXPECT_EQ(OrvoMacroVdmExists(1), 0);
  OrvoMacroVdmClose(1);
}

}  // namespace
}  // namespace vanzet::test
