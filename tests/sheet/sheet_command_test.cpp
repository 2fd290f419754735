#include <algorithm>
#include <nlohmann/json.hpp>
#include <regex>

#include "sheet_fixture.h"

namespace vanzet::test {
namespace {

using Json = nlohmann::json;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

TEST_F(SheetCommand, ShowsTheFactsOfABarJob) {
  MakeJob("bar-job");
  const std::string page = Page();
  EXPECT_THAT(Row(page, "Clamp device"), ElementsAre("Chuck: Chuck 160", "Collet: Collet D42"));
  EXPECT_THAT(Row(page, "Jaws"), ElementsAre("Soft jaw 160, 3 jaws, clamping from outside", "-"));
  EXPECT_THAT(Row(page, "Clamping direction"), ElementsAre("inwards, to the axis", "-"));
  EXPECT_THAT(Row(page, "Jaws at, from the top"), ElementsAre("0°, 120°, 240°", "-"));
  EXPECT_THAT(Row(page, "Front of the jaws in Z"), ElementsAre("-40 mm", "-"))
      << "the clamping out of 60 before the origin translation of 20";
  EXPECT_THAT(Row(page, "Clamp diameter"), ElementsAre("Ø42 mm", "-"));
  EXPECT_THAT(Row(page, "Clamped length"), ElementsAre("62 mm", "-"));
  EXPECT_THAT(Row(page, "Stick-out"), ElementsAre("62 mm", "-")) << "with the front allowance";
  EXPECT_THAT(Row(page, "Clamping out"), ElementsAre("60 mm", "40 mm"));
  EXPECT_THAT(Row(page, "Origin translation in Z"), ElementsAre("20 mm", "-15 mm"));
  EXPECT_THAT(Row(page, "Bar length"), ElementsAre("1000 mm", "-"));
  EXPECT_THAT(Row(page, "Outer radius (A)"), ElementsAre("80 mm"));
  EXPECT_THAT(Row(page, "Machine"), ElementsAre("Mill-turn 65, two spindles"));
  EXPECT_THAT(page,
              AllOf(HasSubstr("<h3>Main spindle: Chuck 160 (Chuck)</h3>"),
                    HasSubstr("<h3>Sub spindle: Collet D42 (Collet)</h3>"),
                    HasSubstr("alt=\"Drawing of Soft jaw 160\""), HasSubstr("The check found nothing.")));
}

TEST_F(SheetCommand, NamesTheFilesOfSolids) {
  MakeJob("flange-casting");
  const std::string page = Page();
  EXPECT_THAT(Row(page, "bodies/flange-casting.step"), ElementsAre("Billet"));
  EXPECT_THAT(Row(page, "bodies/flange.step"), ElementsAre("Finished part"));
  EXPECT_THAT(Row(page, "Clamp device"), ElementsAre("Chuck: Chuck 210")) << "one spindle has one column";
}

TEST_F(SheetCommand, ShowsTheCenterAndTheSteadyRest) {
  MakeJob("shaft-steady-rest");
  const std::string page = Page();
  EXPECT_THAT(Row(page, "Steady rest"), ElementsAre("used"));
  EXPECT_EQ(Row(page, "Center").size(), 1U);
  EXPECT_THAT(page, HasSubstr("<h3>Both spindles: "));
}

constexpr const char* kInside = R"({"spur": 0, "main": {
    "chuck": {"name": "Chuck 160"}, "jaw": {"name": "Soft jaw 160", "count": 4, "inside": true},
    "billet": {"kind": "cylinder", "outer_diameter": 120, "inner_diameter": 90, "part_length": 60}},
    "datum": {"main": {"clamping_out": 40, "origin": 20}}})";

TEST_F(SheetCommand, ShowsJawsThatClampFromInside) {
  Define(kInside);
  const std::string page = Page();
  EXPECT_THAT(Row(page, "Jaws"), ElementsAre("Soft jaw 160, 4 jaws, clamping from inside"));
  EXPECT_THAT(Row(page, "Clamping direction"), ElementsAre("outwards, away from the axis"));
  EXPECT_THAT(Row(page, "Jaws at, from the top"), ElementsAre("0°, 90°, 180°, 270°"));
  EXPECT_THAT(Row(page, "Clamp diameter"), ElementsAre("Ø90 mm"));
}

TEST_F(SheetCommand, HasTheColumnOfTheSubSpindleAlone) {
  Define(R"({"spur": 0, "sub": {"chuck": {"name": "Chuck 160"}, "jaw": {"name": "Soft jaw 160"},
      "billet": {"kind": "cylinder", "outer_diameter": 42, "part_length": 100}},
      "datum": {"sub": {"clamping_out": 60, "origin": -15}}})");
  const std::string page = Page();
  EXPECT_THAT(page, AllOf(HasSubstr("<th scope=\"col\">Measure</th><th scope=\"col\">Sub spindle</th></tr>"),
                          HasSubstr("<h3>Sub spindle: Chuck 160 (Chuck)</h3>"), Not(HasSubstr("<h3>Main"))));
  EXPECT_THAT(Row(page, "Clamp device"), ElementsAre("Chuck: Chuck 160"));
  EXPECT_THAT(Row(page, "Clamp diameter"), ElementsAre("Ø42 mm"));
  EXPECT_THAT(Row(page, "Front of the jaws in Z"), ElementsAre("-75 mm"));
}

TEST_F(SheetCommand, ShowsEachSpurOrOne) {
  MakeJob("bar-job");
  const std::string one = kInside;
  Define(std::string(kInside).replace(one.find(": 0"), 3, ": 1"));
  EXPECT_THAT(Page(), AllOf(HasSubstr("<h2>Spur 0</h2>"), HasSubstr("<h2>Spur 1</h2>")));
  EXPECT_THAT(Page("--spur 1"), AllOf(Not(HasSubstr("<h2>Spur 0</h2>")), HasSubstr("<h2>Spur 1</h2>")));
}

TEST_F(SheetCommand, ShowsTheMakersDataWithTheirUnits) {
  MakeJob("bar-job");
  WriteBytes(folder / "lathe/clampdevice.json", R"json({"version": 1, "devices": {"Chuck 160": {
      "clamp_outside": [20, 160], "max_speed": 4500, "order": "<b>4711</b>",
      "link": "https://example.org/chuck?a=1&b=2"}, "Soft jaw 160": {"link": "javascript:alert(1)"}}})json");
  const std::string page = Page();
  EXPECT_THAT(Row(page, "Clamp diameter outside"), ElementsAre("20..160 mm"));
  EXPECT_THAT(Row(page, "Greatest speed"), ElementsAre("4500 1/min"));
  EXPECT_THAT(Row(page, "Order number"), ElementsAre("&lt;b&gt;4711&lt;/b&gt;"));
  EXPECT_THAT(page, HasSubstr("<a href=\"https://example.org/chuck?a=1&amp;b=2\">"));
  EXPECT_THAT(page, AllOf(HasSubstr("<td>javascript:alert(1)</td>"), Not(HasSubstr("href=\"javascript"))));
  EXPECT_THAT(Row(Page("--unit inch"), "Clamp diameter outside"), ElementsAre(HasSubstr(" inch")));
}

TEST_F(SheetCommand, ShowsTheFindingsOfTheCheck) {
  Define(R"({"spur": 0, "main": {"chuck": {"name": "Chuck 160"}, "jaw": {"name": "Soft jaw 160"},
      "billet": {"kind": "cylinder", "outer_diameter": 42, "part_length": 100}},
      "datum": {"main": {"clamping_out": 90, "origin": 20}}})");
  const std::string page = Page();
  EXPECT_THAT(Row(page, "EQ-302"),
              ElementsAre("warning", "main spindle", HasSubstr("The billet is clamped along 10 mm")));
  EXPECT_THAT(page, HasSubstr("Errors: 0, warnings: 1, notes: 0"));
}

TEST_F(SheetCommand, HasTheGenerationOfTheProjectAndItsTime) {
  MakeJob("bar-job");
  const Json history = Json::parse(Vanzet("history lathe --json").out);
  const Json& last = history["generations"][0];
  const std::string page = Page(), number = last["generation"].dump(), time = last["time"];
  EXPECT_THAT(Row(page, "Generation"), ElementsAre(number));
  EXPECT_THAT(Row(page, "Time"), ElementsAre(time));
  EXPECT_THAT(page, HasSubstr("<footer>Set-up sheet: lathe, generation " + number + ", " + time));
}

TEST_F(SheetCommand, IsTheSameEachTime) {
  MakeJob("chuck-transfer");
  Page();
  const std::string first = ReadBytes(folder / "sheet.html");
  Page();
  EXPECT_TRUE(first == ReadBytes(folder / "sheet.html"));
}

TEST_F(SheetCommand, LoadsNothing) {
  MakeJob("bar-job");
  const std::string page = Page();
  const std::regex reference(
      "(src|srcset|data|poster|action|background)=\"([^\"]{0,5})|url\\(|@import|<link|<iframe");
  for (std::sregex_iterator each(page.begin(), page.end(), reference), end; each != end; ++each) {
    EXPECT_EQ((*each)[2], "data:") << each->str();
  }
  EXPECT_THAT(ReadBytes(folder / "sheet.html"), HasSubstr("content=\"default-src 'none';"));
  const std::regex address("href=\"([a-z]*)");
  for (std::sregex_iterator each(page.begin(), page.end(), address), end; each != end; ++each) {
    EXPECT_EQ((*each)[1], "file") << each->str();
  }
}

TEST_F(SheetCommand, IsWrittenInTheLanguageThatIsAskedFor) {
  MakeJob("bar-job");
  const std::string german = Page("--language de");
  EXPECT_THAT(german, AllOf(HasSubstr("<html lang=\"de\">"), HasSubstr("<h1>Einrichteblatt: lathe</h1>"),
                            HasSubstr("Die Prüfung hat nichts gefunden.")));
  EXPECT_THAT(Row(german, "Spannrichtung"), ElementsAre("nach innen, zur Achse hin", "-"));
  Vanzet("sheet lathe --out german.html", "VANZET_LANGUAGE=de");
  EXPECT_TRUE(ReadBytes(folder / "german.html") == ReadBytes(folder / "sheet.html")) << "that of the help";
  Vanzet("sheet lathe --out english.html --language en", "VANZET_LANGUAGE=de");
  EXPECT_THAT(ReadBytes(folder / "english.html"), HasSubstr("<html lang=\"en\">"));
}

TEST_F(SheetCommand, HasLengthsInTheUnitOfTheProject) {
  MakeJob("bar-job");
  WriteBytes(folder / "lathe/bench.ini",
             ReadBytes(folder / "lathe/bench.ini") + "\n[project]\nunit = inch\n");
  EXPECT_THAT(Row(Page(), "Clamp diameter"), ElementsAre("Ø1.6535 inch", "-"));
  EXPECT_THAT(Row(Page("--unit mm"), "Clamp diameter"), ElementsAre("Ø42 mm", "-"));
}

TEST_F(SheetCommand, PrintsOnThePaperThatIsAskedFor) {
  MakeJob("bar-job");
  EXPECT_THAT(Page(), HasSubstr("@page { size: A4;"));
  EXPECT_THAT(Page("--paper A3"), HasSubstr("@page { size: A3;"));
  EXPECT_THAT(Page("--paper letter"), HasSubstr("@page { size: letter;"));
  EXPECT_EQ(Vanzet("sheet lathe --out sheet.html --paper A5").status, 2);
}

TEST_F(SheetCommand, ListsItsFileForPrograms) {
  MakeJob("bar-job");
  const Outcome written = Vanzet("sheet lathe --out sheet.html --json");
  const Json json = Json::parse(written.out);
  EXPECT_EQ(json, Json({{"files", {{{"path", "sheet.html"}, {"bodies", Json::array()}}}}}));
}

TEST_F(SheetCommand, EscapesTheNamesOfProjectsAndDevices) {
  MakeProject();
  ASSERT_EQ(
      Vanzet("catalogue add '</script><script>alert(1)</script>' lathe --kind chuck --letter A=80 --letter "
             "B=90 --letter C=22")
          .status,
      0);
  Define(R"({"spur": 0, "main": {"chuck": {"name": "</script><script>alert(1)</script>"}}})");
  std::filesystem::rename(folder / "lathe", folder / "a <b> & c");
  const Outcome written = Vanzet("sheet 'a <b> & c' --out sheet.html");
  ASSERT_EQ(written.status, 0) << written.err;
  const std::string page = ReadBytes(folder / "sheet.html");
  EXPECT_THAT(page, Not(HasSubstr("<script>alert")));
  EXPECT_THAT(page, AllOf(HasSubstr("<h1>Set-up sheet: a &lt;b&gt; &amp; c</h1>"),
                          HasSubstr("/a%20%3Cb%3E%20%26%20c\""),
                          HasSubstr("&lt;/script&gt;&lt;script&gt;alert(1)&lt;/script&gt; (Chuck)</h3>")));
}

TEST_F(SheetCommand, SaysInOneLineWhyThereIsNoSheet) {
  MakeJob("bar-job");
  const auto fault = [&](const std::string& arguments) {
    const Outcome failed = Vanzet("sheet " + arguments);
    EXPECT_EQ(failed.out, "");
    EXPECT_EQ(std::ranges::count(failed.err, '\n'), failed.status == 1 ? 1 : 2) << failed.err;
    return std::to_string(failed.status) + " " + failed.err;
  };
  EXPECT_THAT(fault("lathe --spur 7 --out a.html"), HasSubstr("1 vanzet: spur 7 does not exist"));
  EXPECT_THAT(fault("lathe --spur 1 --out a.html"), HasSubstr("1 vanzet: spur 1 has no equipment yet"));
  EXPECT_THAT(fault("missing --out a.html"), HasSubstr("1 vanzet: "));
  EXPECT_THAT(fault("lathe --out no/a.html"), HasSubstr("1 vanzet: no/a.html: cannot be written"));
  EXPECT_THAT(fault("lathe --out a.doc"),
              HasSubstr("2 vanzet: --out: expected a file that ends with .html, .pdf or .svg"));
  EXPECT_THAT(fault("lathe"), HasSubstr("2 vanzet: --out FILE is missing"));
  std::filesystem::copy_file(folder / "lathe/bodies/flange.step", folder / "lathe/bodies/page.html");
  EXPECT_THAT(fault("lathe --out lathe/bodies/page.html"),
              HasSubstr("page.html: cannot be written: this command reads the file"));
  EXPECT_FALSE(std::filesystem::exists(folder / "a.html"));
}

TEST_F(SheetCommand, NeedsADefinition) {
  MakeProjectWithoutDefinitions();
  const Outcome failed = Vanzet("sheet lathe --out a.html");
  EXPECT_EQ(failed.status, 1);
  EXPECT_EQ(failed.err, "vanzet: the project has no definition yet; 'vanzet upgrade' creates it\n");
}

TEST_F(SheetCommand, ReportsBodiesThatAreMissing) {
  MakeJob("flange-casting");
  std::filesystem::remove(folder / "lathe/bodies/flange.step");
  const Outcome written = Vanzet("sheet lathe --out sheet.html");
  EXPECT_EQ(written.status, 0);
  EXPECT_THAT(written.err, HasSubstr("flange"));
  EXPECT_EQ(Vanzet("sheet lathe --out sheet.html --strict").status, 1);
}

}  // namespace
}  // namespace vanzet::test
