#include <algorithm>
#include <sstream>

#include "run_vanzet.h"
#include "support/places.h"

namespace vanzet::test {
namespace {

/// A command of a page, and the output that the page shows: lines, among them "..." for any others.
struct Step {
  std::string command;
  std::vector<std::string> output;
};

/// The lines of a page's blocks that begin with "$ vanzet ", with the lines that follow them in the block.
std::vector<Step> StepsOf(const std::string& page) {
  static const std::string kPrompt = "$ vanzet ";
  std::istringstream lines(ReadBytes(page));
  std::vector<Step> steps;
  bool isInBlock = false, isAfterCommand = false;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("```")) {
      isInBlock = !isInBlock;
      isAfterCommand = false;
    } else if (isInBlock && line.starts_with(kPrompt)) {
      steps.push_back({line.substr(kPrompt.size()), {}});
      isAfterCommand = true;
    } else if (isAfterCommand) {
      steps.back().output.push_back(line);
    }
  }
  return steps;
}

/// A regular expression would need its signs escaped in every page: the parts between "..." are looked for.
bool Shows(const std::string& output, const std::vector<std::string>& expected) {
  std::size_t at = 0;
  bool isExact = true;
  for (const std::string& line : expected) {
    if (line == "...") {
      isExact = false;
      continue;
    }
    const std::size_t found = output.find(line + "\n", at);
    if (found == std::string::npos || (isExact && found != at)) return false;
    at = found + line.size() + 1;
    isExact = true;
  }
  return !isExact || at == output.size();
}

/// Pages for new users, which they type as they are written.
class GuidePage : public CommandLineTest {
 protected:
  void Type(const std::vector<Step>& steps) {
    for (const Step& step : steps) {
      if (step.command.starts_with("open ")) continue;  // a window; the page has another way, too
      const Outcome run = Vanzet(step.command);
      const bool finds = std::ranges::any_of(
          step.output, [](const std::string& line) { return line.find(": error EQ-") != std::string::npos; });
      EXPECT_EQ(run.status, finds ? 3 : 0) << step.command << "\n" << run.err;
      EXPECT_EQ(run.err, "") << step.command;
      if (!step.output.empty()) {
        EXPECT_TRUE(Shows(run.out, step.output)) << step.command << " printed:\n" << run.out;
      }
    }
  }
};

class Guide : public GuidePage, public testing::WithParamInterface<const char*> {};

TEST_P(Guide, TypedAsWrittenDoesWhatItShows) {
  std::filesystem::create_directory_symlink(VANZET_SOURCE_DIR "/examples", folder / "examples");
  std::string page = VANZET_SOURCE_DIR "/";
  page += GetParam();
  const std::vector<Step> steps = StepsOf(page);
  ASSERT_GE(steps.size(), 4U);
  Type(steps);
  EXPECT_TRUE(std::filesystem::exists(folder / "models/main-billet.step")) << "from zero to exported files";
}

/// The block of a page that begins with `start`.
std::string BlockOf(const std::string& page, const std::string& start) {
  const std::size_t begin = page.find("```\n" + start);
  if (begin == std::string::npos) return {};
  const std::size_t end = page.find("```", begin + 3);
  return page.substr(begin + 4, end - begin - 4);
}

TEST_F(GuidePage, OfScriptsContinuesTheFirstJob) {
  MakeProject();
  const std::string page = VANZET_SOURCE_DIR "/docs/guide/scripts.md";
  const std::vector<Step> steps = StepsOf(page);
  ASSERT_EQ(steps.size(), 5U);
  const std::string script = BlockOf(ReadBytes(page), "select ");
  ASSERT_THAT(script, testing::EndsWith("press OK\n"));
  WriteBytes(folder / "clicks.txt", script);
  Type(steps);
  EXPECT_EQ(Vanzet("script lathe clicks.txt --strict --transcript run.jsonl").err, "");
  const std::string shown = Vanzet("show lathe --spur 0").out;
  EXPECT_THAT(shown, testing::ContainsRegex(" Chuck +Chuck 160\n"));
  EXPECT_THAT(shown, testing::ContainsRegex(" Outer diameter +42 mm\n"));
}

TEST_F(GuidePage, OfChecksFindsWhatItShows) {
  std::filesystem::create_directory_symlink(VANZET_SOURCE_DIR "/examples", folder / "examples");
  const std::string page = VANZET_SOURCE_DIR "/docs/guide/check.md";
  WriteBytes(folder / "too-thick.json", BlockOf(ReadBytes(page), "{\n"));
  const std::vector<Step> steps = StepsOf(page);
  ASSERT_EQ(steps.size(), 6U);
  Type(steps);
  EXPECT_TRUE(std::filesystem::exists(folder / "findings/EQ-203-spur0-main-section.svg"));
  EXPECT_TRUE(std::filesystem::exists(folder / "findings.sarif"));
}

INSTANTIATE_TEST_SUITE_P(Of, Guide, testing::Values("README.md", "docs/guide/first-job.md"),
                         [](const auto& page) {
                           return std::filesystem::path(page.param).stem().string() == "README" ? "Readme"
                                                                                                : "FirstJob";
                         });

}  // namespace
}  // namespace vanzet::test
