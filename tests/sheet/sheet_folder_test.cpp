#include <algorithm>
#include <nlohmann/json.hpp>

#include "sheet_fixture.h"

namespace vanzet::test {
namespace {

using Json = nlohmann::json;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/// A folder of projects: jobs/"bar & chuck", with a sheet, and jobs/empty, without equipment.
class SheetFolder : public SheetCommand {
 protected:
  void SetUp() override {
    MakeJob("bar-job");
    std::filesystem::create_directories(folder / "jobs/notes");
    WriteBytes(folder / "jobs/notes/read-me.txt", "not a project");
    std::filesystem::rename(folder / "lathe", folder / "jobs/bar & chuck");
  }

  void AddEmptyProject() { ASSERT_EQ(Vanzet("new jobs/empty").status, 0); }

  /// The index, without the bytes of its pictures.
  std::string Index() { return Without(ReadBytes(folder / "sheets/index.html"), ";base64,", "\""); }
};

TEST_F(SheetFolder, HasASheetOfEachProjectAndAnIndex) {
  std::filesystem::copy(folder / "jobs/bar & chuck", folder / "jobs/second",
                        std::filesystem::copy_options::recursive);
  const Outcome written = Vanzet("sheet --all jobs --out sheets");
  EXPECT_EQ(written.status, 0);
  EXPECT_EQ(written.err, "");
  EXPECT_EQ(written.out, "sheets/index.html\nsheets/sheets/bar & chuck.html\nsheets/sheets/second.html\n");
  EXPECT_THAT(ReadBytes(folder / "sheets/sheets/second.html"), HasSubstr("<h1>Set-up sheet: second</h1>"));
  EXPECT_THAT(Index(),
              AllOf(HasSubstr("<h1>Set-up sheets: jobs</h1>"),
                    HasSubstr("<a href=\"sheets/bar%20%26%20chuck.html\">bar &amp; chuck</a>"),
                    HasSubstr("<a href=\"sheets/second.html\">second</a>"), Not(HasSubstr("notes"))));
}

TEST_F(SheetFolder, ShowsThePictureAndTheFindingsOfEachProject) {
  Vanzet("sheet --all jobs --out sheets");
  const std::string page = Index();
  EXPECT_THAT(page, HasSubstr("src=\"data:image/png>"));
  EXPECT_THAT(page, HasSubstr("<td>Mill-turn 65, two spindles</td>"));
  EXPECT_THAT(page, HasSubstr("<td>1</td><td>0</td><td>0</td></tr>")) << "spurs, errors, warnings";
}

TEST_F(SheetFolder, GoesOnAfterAProjectThatFails) {
  AddEmptyProject();
  std::filesystem::create_directories(folder / "jobs/a-broken");
  WriteBytes(folder / "jobs/a-broken/bench.ini", "[nonsense\n");
  const Outcome written = Vanzet("sheet --all jobs --out sheets");
  EXPECT_EQ(written.status, 1);
  EXPECT_THAT(written.err, AllOf(HasSubstr("vanzet: a-broken: "), HasSubstr("bench.ini:1"),
                                 HasSubstr("\nvanzet: empty: the project has no equipment yet\n")));
  EXPECT_EQ(std::ranges::count(written.err, '\n'), 2) << written.err;
  EXPECT_EQ(written.out, "sheets/index.html\nsheets/sheets/bar & chuck.html\n");
  EXPECT_THAT(
      Index(),
      HasSubstr("<th scope=\"row\">empty</th><td colspan=\"7\">the project has no equipment yet</td>"));
}

TEST_F(SheetFolder, NamesTheProjectOfABodyThatIsMissing) {
  MakeJob("flange-casting");
  std::filesystem::rename(folder / "lathe", folder / "jobs/casting");
  std::filesystem::remove(folder / "jobs/casting/bodies/flange.step");
  const Outcome written = Vanzet("sheet --all jobs --out sheets");
  EXPECT_EQ(written.status, 0);
  EXPECT_THAT(written.err, AllOf(HasSubstr("vanzet: casting: "), HasSubstr("flange")));
  EXPECT_EQ(Vanzet("sheet --all jobs --out sheets --strict").status, 1);
}

TEST_F(SheetFolder, LoadsNothingAndIsTheSameEachTime) {
  Vanzet("sheet --all jobs --out sheets");
  const std::string first = ReadBytes(folder / "sheets/index.html");
  EXPECT_THAT(Index(), AllOf(HasSubstr("content=\"default-src 'none';"), Not(HasSubstr("<link"))));
  Vanzet("sheet --all jobs --out sheets");
  EXPECT_TRUE(first == ReadBytes(folder / "sheets/index.html"));
}

TEST_F(SheetFolder, IsWrittenInTheLanguageThatIsAskedFor) {
  Vanzet("sheet --all jobs --out sheets --language de");
  EXPECT_THAT(Index(), AllOf(HasSubstr("<html lang=\"de\">"), HasSubstr("<h1>Einrichteblätter: jobs</h1>"),
                             HasSubstr("Nach dem Namen suchen")));
}

TEST_F(SheetFolder, ListsItsFilesForPrograms) {
  const Json json = Json::parse(Vanzet("sheet --all jobs/ --out sheets --json").out);
  std::vector<std::string> paths;
  for (const Json& file : json["files"]) paths.push_back(file["path"]);
  EXPECT_THAT(paths, ElementsAre("sheets/index.html", "sheets/sheets/bar & chuck.html"));
  EXPECT_THAT(Index(), HasSubstr("<h1>Set-up sheets: jobs</h1>")) << "with a separator at its end";
}

TEST_F(SheetFolder, SaysInOneLineWhyNothingIsWritten) {
  const auto fault = [&](const std::string& arguments) {
    const Outcome failed = Vanzet("sheet " + arguments);
    EXPECT_EQ(failed.out, "");
    return std::to_string(failed.status) + " " + failed.err;
  };
  EXPECT_THAT(fault("--all missing --out sheets"), HasSubstr("1 vanzet: missing: cannot be read"));
  EXPECT_THAT(fault("--all jobs/notes --out sheets"),
              HasSubstr("1 vanzet: jobs/notes: has no folder that is"));
  EXPECT_THAT(fault("--all jobs --out 'jobs/bar & chuck'"),
              HasSubstr("cannot be the folder of the sheets: it is in the project bar & chuck"));
  EXPECT_THAT(fault("--all jobs --out sheets --spur 0"), HasSubstr("2 vanzet: --spur: has no effect"));
  EXPECT_THAT(fault("other --all jobs --out sheets"),
              HasSubstr("2 vanzet: --all: takes the place of a project"));
  EXPECT_FALSE(std::filesystem::exists(folder / "sheets"));
}

}  // namespace
}  // namespace vanzet::test
