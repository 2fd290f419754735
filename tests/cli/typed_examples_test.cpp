#include <sstream>

#include "run_vanzet.h"
#include "support/places.h"

namespace vanzet::test {
namespace {

namespace fs = std::filesystem;

const std::string kSource = VANZET_SOURCE_DIR "/";

/// The lines of a page that begin with "vanzet ": those in its blocks, or those that are indented.
std::vector<std::string> CommandsOf(const std::string& page, bool isIndented) {
  const std::string start = isIndented ? "    vanzet " : "vanzet ";
  std::istringstream lines(ReadBytes(kSource + page));
  std::vector<std::string> commands;
  bool isInBlock = isIndented;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("```")) isInBlock = !isInBlock;
    if (isInBlock && line.starts_with(start)) commands.push_back(line.substr(start.size() - 7));
  }
  return commands;
}

/// Examples of the help and of pages, as a person types them in a shell.
class TypedExamples : public CommandLineTest {
 protected:
  /// Fails unless the line has the status 0, or 3 where it is to find something.
  void Type(const std::string& line) {
    if (line.starts_with("vanzet open ")) return;                 // a window
    if (line.find(" fish ") != std::string::npos) return;         // a line of another shell
    if (line.find("postgresql://") != std::string::npos) return;  // a server of the shop
    if (line.starts_with("vanzet catalogue history ")) return;    // a catalogue on such a server
    WriteBytes(folder / "line.bash", line);
    const std::string bin = fs::path(VANZET_PROGRAM).parent_path();
    const Outcome run =
        Vanzet("--version >/dev/null", "PATH='" + bin + "':$PATH bash -o pipefail line.bash &&");
    const bool finds = line.starts_with("vanzet diff ") || line.starts_with("vanzet catalogue diff ");
    EXPECT_THAT(run.status, finds ? testing::AnyOf(0, 3) : testing::AnyOf(0, 0)) << line << "\n" << run.err;
  }

  void Copy(const std::string& file, const std::string& to) {
    fs::copy(kSource + file, folder / to, fs::copy_options::overwrite_existing);
  }
};

/// The files that the examples name, in a folder with the projects "other" and "lathe", which has been
/// defined several times.
class ExamplesOfTheHelp : public TypedExamples {
 protected:
  void MakeFiles() {
    for (const auto& contour : fs::directory_iterator(kSource + "examples/contours")) {
      if (contour.is_regular_file()) fs::copy(contour, folder.path());
    }
    Copy("examples/contours/rounded_square.txt", "outline.txt");
    Copy("examples/bodies/casting.step", "maker.step");
    Copy("examples/drawings/billet.txt", "billet.txt");
    Copy("examples/packages/KF-250.zip", "KF-250.zip");
    Copy("examples/scripts/bar-job.txt", "bar-job.txt");
    Copy("examples/definitions/bar-job.json", "bar-job.json");
    for (const char* const line :
         {"vanzet new other && vanzet new lathe",
          "sed 's/\"outer_diameter\": 42/\"outer_diameter\": 40/' bar-job.json >thin.json",
          "for job in thin bar-job thin bar-job thin bar-job thin; do vanzet define $job.json lathe; "
          "done",
          "vanzet new lathe-2 && rm lathe-2/store.*", "vanzet vdm save lathe 1000 job.vdm",
          "vanzet device make --class chuck --body maker.step --face 60 --outline "
          "outline.txt -o chuck.vdm"}) {
      Type(line);
    }
    Copy("examples/bodies/casting.step", "lathe/bodies/casting.step");
    fs::create_directory(folder / "kept");
    fs::rename(folder / "lathe", folder / "kept/lathe");
    fs::create_directory(folder / "jobs");
    fs::copy(folder / "kept/lathe", folder / "jobs/lathe", fs::copy_options::recursive);
  }
};

TEST_F(ExamplesOfTheHelp, AllWork) {
  MakeFiles();
  const std::vector<std::string> commands = CommandsOf("docs/command-line.md", false);
  ASSERT_GE(commands.size(), 50U);
  for (const std::string& command : commands) {
    fs::remove_all(folder / "lathe");
    if (!command.starts_with("vanzet new "))
      fs::copy(folder / "kept/lathe", folder / "lathe", fs::copy_options::recursive);
    Type(command);
  }
}

TEST_F(TypedExamples, OfThePageOfExamplesWork) {
  fs::create_directory_symlink(kSource + "examples", folder / "examples");
  const std::vector<std::string> commands = CommandsOf("docs/examples.md", false);
  ASSERT_GE(commands.size(), 9U);
  for (const std::string& command : commands) Type(command);
  for (const char* const file : {"blank.svg", "section.png", "flange.png", "models/equipment.step"})
    EXPECT_TRUE(fs::exists(folder / file)) << file;
}

TEST_F(TypedExamples, OfOwnDevicesWork) {
  Copy("examples/contours/rounded_square.txt", "outline.txt");
  Copy("examples/bodies/casting.step", "maker.step");
  const std::vector<std::string> commands = CommandsOf("docs/guide/own-devices.md", true);
  ASSERT_EQ(commands.size(), 3U);
  for (const std::string& command : commands) Type(command);
}

}  // namespace
}  // namespace vanzet::test
