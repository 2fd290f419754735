#include <algorithm>
#include <regex>

#include "sheet_fixture.h"

namespace vanzet::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

/// The sheet on paper, read back by other programs.
class SheetOnPaper : public SheetCommand {
 protected:
  /// Runs a shell command in the folder of the test and returns what it prints.
  std::string Shell(const std::string& command) {
    const std::string line = "cd '" + folder.path().string() + "' && " + command + " >printed.txt 2>&1";
    EXPECT_EQ(std::system(line.c_str()), 0) << command << ": " << ReadBytes(folder / "printed.txt");
    return ReadBytes(folder / "printed.txt");
  }

  std::string WritePdf(const std::string& options = "") {
    const Outcome written = Vanzet("sheet lathe --out sheet.pdf " + options);
    EXPECT_EQ(written.status, 0) << written.err;
    EXPECT_EQ(written.out, "sheet.pdf\n");
    return Shell("pdftotext -layout sheet.pdf -");
  }
};

TEST_F(SheetOnPaper, HasTheFactsAsText) {
  MakeJob("chuck-transfer");
  const std::string text = WritePdf();
  EXPECT_THAT(text, AllOf(HasSubstr("Set-up sheet: lathe"), HasSubstr("Mill-turn 65, two spindles"),
                          HasSubstr("Half section"), HasSubstr("The check found nothing.")));
  EXPECT_THAT(text, testing::ContainsRegex("Clamp device +Chuck: Chuck 210 +Chuck: Chuck 160"));
  EXPECT_THAT(text, testing::ContainsRegex("Outer radius \\(A\\) +105 mm"));
}

TEST_F(SheetOnPaper, HasItsPagesNumberedWithTheGeneration) {
  MakeJob("bar-job");
  const std::string text = WritePdf();
  const auto pages = std::ranges::count(text, '\f');
  EXPECT_GE(pages, 2);
  for (int page = 1; page <= pages; ++page) {
    EXPECT_THAT(text, testing::ContainsRegex("Set-up sheet: lathe, generation 2, 20[^\n]+Z +" +
                                             std::to_string(page) + " ?/ ?" + std::to_string(pages)));
  }
}

TEST_F(SheetOnPaper, IsOfTheSizeThatIsAskedFor) {
  MakeJob("bar-job");
  WritePdf();
  EXPECT_THAT(Shell("pdfinfo sheet.pdf"), testing::ContainsRegex("Page size: +59[45].* x 84[12].*\\(A4\\)"));
  WritePdf("--paper A3");
  EXPECT_THAT(Shell("pdfinfo sheet.pdf"), testing::ContainsRegex("Page size: +84[12].* x 119[01]"));
  WritePdf("--paper letter");
  EXPECT_THAT(Shell("pdfinfo sheet.pdf"), testing::ContainsRegex("Page size: +612 x 792"));
}

TEST_F(SheetOnPaper, HasTheTimeOfTheGenerationAndTheSameBytesEachTime) {
  MakeJob("bar-job");
  WritePdf();
  const std::string first = ReadBytes(folder / "sheet.pdf");
  const std::string time = Row(Page(), "Time").front();
  std::string digits = time;
  std::erase_if(digits, [](char c) { return c < '0' || c > '9'; });
  EXPECT_THAT(first, HasSubstr("/CreationDate (D:" + digits));
  WritePdf();
  EXPECT_TRUE(first == ReadBytes(folder / "sheet.pdf"));
}

TEST_F(SheetOnPaper, IsInTheLanguageThatIsAskedFor) {
  MakeJob("bar-job");
  EXPECT_THAT(WritePdf("--language de"), AllOf(HasSubstr("Einrichteblatt: lathe"), HasSubstr("Rohteillänge"),
                                               HasSubstr("Die Prüfung hat nichts gefunden.")));
}

TEST_F(SheetOnPaper, HasItsFirstPageAsSvgInMillimetres) {
  MakeJob("bar-job");
  const Outcome written = Vanzet("sheet lathe --out sheet.svg");
  EXPECT_EQ(written.status, 0) << written.err;
  const std::string svg = ReadBytes(folder / "sheet.svg");
  EXPECT_THAT(svg, AllOf(HasSubstr("width=\"210mm\" height=\"297mm\""), HasSubstr("viewBox=\"0 0 210 297\""),
                         HasSubstr(">Set-up sheet: lathe<"), HasSubstr(">Half section<"),
                         Not(HasSubstr("Outer radius (A)"))));
}

}  // namespace
}  // namespace vanzet::test
