#include "project/project.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace vanzet::project {
namespace {

class ProjectTest : public testing::Test {
 protected:
  ProjectTest() {
    std::filesystem::create_directories(folder / "p");
    test::WriteBytes(folder / "share/messages/de.txt", "704 = Hauptspindel\n");
  }
  Result<Project> Open() const { return Project::Open(folder / "p", folder / "share"); }
  Result<Project> OpenWith(const std::string& benchIni) const {
    test::WriteBytes(folder / "p/bench.ini", benchIni);
    return Open();
  }
  std::string FaultWith(const std::string& benchIni) const {
    const auto project = OpenWith(benchIni);
    return project ? "" : project.fault().Message();
  }
  std::string Ini() const { return (folder / "p/bench.ini").string(); }

  const test::TemporaryFolder folder;
};

TEST_F(ProjectTest, MayBeAnEmptyFolder) {
  const auto project = Open();
  ASSERT_TRUE(project);
  EXPECT_EQ(project->DefinitionOf(0), 1000U);
  EXPECT_EQ(project->DefinitionOf(1), 1001U);
  EXPECT_EQ(project->DefinitionOf(3), 1003U);
  EXPECT_EQ(*project->SpindleSpurs(), 1);
  EXPECT_EQ(project->Environment("-d"), std::filesystem::canonical(folder / "p").string());
  EXPECT_EQ(project->Environment("ppdefini"),
            (std::filesystem::canonical(folder / "p") / "machine.ini").string());
  EXPECT_EQ(project->Environment("clampmdb"),
            (std::filesystem::canonical(folder / "p") / "clampdevice.cld").string());
  EXPECT_EQ(project->Environment("SubSpindleAvailable"), "");
  EXPECT_EQ(project->Message(704), std::nullopt);
}

TEST_F(ProjectTest, IsNoFolderThatHoldsOtherThings) {
  test::WriteBytes(folder / "p/letter.txt", "");
  const auto project = Open();
  ASSERT_FALSE(project);
  EXPECT_EQ(project.fault().file, (folder / "p").string());
  EXPECT_NE(project.fault().text.find("is not a project"), std::string::npos);
}

TEST_F(ProjectTest, IsNoFolderThatOnlyHasFoldersOfItsNames) {
  for (const char* name : {"tmp/x", "bodies/x", "figures/x"}) test::WriteBytes(folder / "p" / name, "");
  EXPECT_FALSE(Open()) << "the root of a system has a tmp too";
}

TEST_F(ProjectTest, IsNoFolderWhoseNameWouldBeTakenApart) {
  std::filesystem::create_directories(folder / "a\\b");
  EXPECT_FALSE(Project::Open(folder / "a\\b", folder / "share"));
  EXPECT_FALSE(Project::Open("", folder / "share"));
}

TEST_F(ProjectTest, IsKnownByAnyOfItsFiles) {
  test::WriteBytes(folder / "p/letter.txt", "");
  test::WriteBytes(folder / "p/machine.ini", "");
  EXPECT_TRUE(Open());
}

TEST_F(ProjectTest, IsNoFile) {
  EXPECT_FALSE(Project::Open(folder / "share/messages/de.txt", folder / "share"));
  EXPECT_FALSE(Project::Open(folder / "none", folder / "share"));
}

TEST_F(ProjectTest, TakesItsSettingsBeforeTheDefaults) {
  const auto project = OpenWith(
      "[environment]\nppdefini=pp\\other.ini\nsubspindleavailable=1\n[variables]\ni_billet_vdm=7\n"
      "i_billet_vdm_spispur=70\nw_x=2.5\n$_COUNTRY=_de\n[language]\nmessages=de\n");
  ASSERT_TRUE(project);
  EXPECT_EQ(project->Environment("SubSpindleAvailable"), "1");
  EXPECT_EQ(project->DefinitionOf(0), 7U);
  EXPECT_EQ(project->DefinitionOf(2), 71U);
  EXPECT_EQ(project->startVariables().Real("w_x"), 2.5);
  EXPECT_EQ(project->startVariables().Text("$_COUNTRY"), "_de");
  EXPECT_EQ(project->Message(704), "Hauptspindel");
}

TEST_F(ProjectTest, TellsItsFoldersByVariables) {
  const auto project = Open();
  EXPECT_EQ(project->startVariables().Text("$_root_dir"), (folder / "share").string() + "/");
}

TEST_F(ProjectTest, FindsItsMachineWhereTheSettingsSay) {
  test::WriteBytes(folder / "p/PP/Other.ini", "[COMMON]\nNR_SPINDEL_SPUR=4\n");
  EXPECT_EQ(*OpenWith("[environment]\nppdefini=pp\\other.ini\n")->SpindleSpurs(), 4);
  const std::string absolute = (folder / "p/PP/Other.ini").string();
  EXPECT_EQ(*OpenWith("[environment]\nppdefini=" + absolute + "\n")->SpindleSpurs(), 4);
  const std::string drive = "[drives]\nD=" + (folder / "p").string() + "\n";
  EXPECT_EQ(*OpenWith(drive + "[environment]\nppdefini=D:\\PP\\Other.ini\n")->SpindleSpurs(), 4);
}

TEST_F(ProjectTest, TellsFileAndLineOfAWrongSetting) {
  EXPECT_EQ(FaultWith("[variables]\n\ni_billet_vdm=many\n"),
            Ini() + ":3:14: i_billet_vdm: expected an integer, found 'many'");
  EXPECT_EQ(FaultWith("[variables]\nx=1\n").substr(0, Ini().size() + 3), Ini() + ":2:");
  EXPECT_EQ(FaultWith("[language]\nmessages=fr\n"), Ini() + ":2:10: no such catalogue of texts: 'fr'");
  EXPECT_EQ(FaultWith(std::string("[project]\n\x01\x02", 12)),
            Ini() + ":2:1: not a text file: the line has a control character");
}

TEST_F(ProjectTest, TellsFileAndLineOfAWrongText) {
  test::WriteBytes(folder / "share/messages/de.txt", "704 Hauptspindel\n");
  EXPECT_EQ(FaultWith("[language]\nmessages=de\n"),
            (folder / "share/messages/de.txt").string() + ":1:1: expected 'id = text'");
}

}  // namespace
}  // namespace vanzet::project
