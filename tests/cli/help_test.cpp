#include "run_vanzet.h"

#include <filesystem>
#include <map>
#include <set>
#include <sstream>

#include "support/places.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;

class Help : public CommandLineTest {};

TEST_F(Help, OfEveryCommandHasAnExample) {
  for (const std::string command :
       {"", "new", "open", "upgrade", "show", "items", "vdm", "vdm save", "vdm load", "vdm check", "command",
        "script", "define", "picture", "export", "device make", "device show", "completion", "manual"}) {
    const Outcome help = Vanzet(command + " --help");
    EXPECT_EQ(help.status, 0) << command;
    EXPECT_THAT(help.out, HasSubstr("Example:\n  ")) << command;
    EXPECT_THAT(help.out, HasSubstr("vanzet " + command)) << command;
  }
}

TEST_F(Help, TellsTheVersion) {
  EXPECT_THAT(Vanzet("--version").out, testing::MatchesRegex("vanzet [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST_F(Help, WrongUsageHasTheStatusTwo) {
  for (const char* arguments :
       {"dance", "--nope", "show --rubbish", "show --spur x", "new", "vdm", "vdm save", "vdm save a b c d",
        "completion tcsh", "show --spur ''", "show --spur 0x1", "items --vdm -5", "items --vdm nan",
        "items --vdm 4294967291", "vdm save five x.vdm", "vdm save 1000 ''", "vdm load x.vdm five",
        "vdm check ''", "upgrade --trace ''"}) {
    const Outcome run = Vanzet(arguments);
    EXPECT_EQ(run.status, 2) << arguments;
    EXPECT_THAT(run.err, testing::MatchesRegex("vanzet: [^\n]*\ntry 'vanzet[^\n]* --help'\n")) << arguments;
    EXPECT_EQ(run.out, "") << arguments;
  }
}

TEST_F(Help, SaysWhatIsWrongInWordsOfTheHelp) {
  const std::map<std::string, std::string> messages = {
      {"dance", "vanzet: no such command: 'dance'\ntry 'vanzet --help'\n"},
      {"shwo", "vanzet: no such command: 'shwo'; did you mean 'show'?\ntry 'vanzet --help'\n"},
      {"vdm", "vanzet: expected a command: save, load, check\ntry 'vanzet vdm --help'\n"},
      {"vdm svae", "vanzet: no such command: 'svae'; did you mean 'save'?\ntry 'vanzet vdm --help'\n"},
      {"--nope", "vanzet: no such option: '--nope'\ntry 'vanzet --help'\n"},
      {"show --jsn", "vanzet: no such option: '--jsn'; did you mean '--json'?\ntry 'vanzet show --help'\n"},
      {"show --json=yes", "vanzet: --json: takes no value\ntry 'vanzet show --help'\n"},
      {"show --spur", "vanzet: --spur: N is missing\ntry 'vanzet show --help'\n"},
      {"show --spur --json", "vanzet: --spur: N is missing\ntry 'vanzet show --help'\n"},
      {"show --spur 0 --spur 1", "vanzet: --spur: is given twice\ntry 'vanzet show --help'\n"},
      {"show a b", "vanzet: unexpected operand 'b'\ntry 'vanzet show --help'\n"},
      {"new", "vanzet: DIR is missing\ntry 'vanzet new --help'\n"},
      {"vdm save 1000",
       "vanzet: expected [PROJECT] NUMBER FILE, found 1 operand\ntry 'vanzet vdm save --help'\n"},
      {"export lathe --out x", "vanzet: --format FORMAT is missing\ntry 'vanzet export --help'\n"},
      {"export lathe --out x --format stp",
       "vanzet: --format: expected one of step, stl, wrl, gltf, obj, iges, 3mf, json, linuxcnc, mtconnect; "
       "found 'stp'; did you mean 'step' or 'stl'?\n"
       "try 'vanzet export --help'\n"},
      {"contour xml a.txt b.txt",
       "vanzet: expected [FILE], found 2 operands\ntry 'vanzet contour xml --help'\n"},
      {"contour near slot.txt 12.5", "vanzet: Y is missing\ntry 'vanzet contour near --help'\n"},
      {"contour info --contour x",
       "vanzet: --contour: expected a number from -2147483648 to 2147483647, found 'x'\n"
       "try 'vanzet contour info --help'\n"},
      {"contour offset 1 --left --right",
       "vanzet: --right: cannot be given together with --left\ntry 'vanzet contour offset --help'\n"},
      {"help dance", "vanzet: no such command: 'dance'\ntry 'vanzet help --help'\n"},
      {"help show lathe", "vanzet: no such command: 'lathe'\ntry 'vanzet help --help'\n"},
  };
  for (const auto& [arguments, message] : messages) EXPECT_EQ(Vanzet(arguments).err, message) << arguments;
}

TEST_F(Help, SaysWhichOperandIsMissingAfterAProject) {
  MakeProject();
  EXPECT_THAT(Vanzet("vdm save lathe 1000").err, HasSubstr("vanzet: FILE is missing\n"));
  EXPECT_THAT(Vanzet("vdm load lathe job.vdm").err, HasSubstr("vanzet: NUMBER is missing\n"));
  std::filesystem::create_directories(folder / "job.json");
  EXPECT_EQ(Vanzet("define job.json lathe").err, "vanzet: job.json: is not a regular file\n");
}

TEST_F(Help, IsPrintedWithoutAnyWordAndByTheCommandHelp) {
  const Outcome bare = Vanzet("");
  EXPECT_EQ(bare.status, 0);
  EXPECT_EQ(bare.out, Vanzet("--help").out);
  EXPECT_EQ(Vanzet("help").out, bare.out);
  EXPECT_EQ(Vanzet("help vdm").out, Vanzet("vdm --help").out);
  EXPECT_EQ(Vanzet("help vdm save").out, Vanzet("vdm save -h").out);
  EXPECT_EQ(Vanzet("-V").out, Vanzet("--version").out);
  EXPECT_EQ(Vanzet("--help >/dev/full").status, 1);
}

TEST_F(Help, ReadsNumbersAsDecimal) {
  MakeUpgradedProject();
  EXPECT_EQ(Vanzet("items lathe --vdm 01000").out, Vanzet("items lathe --vdm 1000").out);
}

TEST_F(Help, IsInTheLanguageOfOneVariableOnly) {
  const std::string english = Vanzet("show --help").out;
  EXPECT_EQ(Vanzet("show --help", "LANG=de_DE.UTF-8 LANGUAGE=de").out, english);
  EXPECT_EQ(Vanzet("show --help", "VANZET_LANGUAGE=xx").out, english);
  const std::string german = Vanzet("show --help", "VANZET_LANGUAGE=de").out;
  EXPECT_THAT(
      german,
      HasSubstr(
          "Gibt aus, was für jede Spindelspur definiert ist und was fehlt.\nAufruf: vanzet show [OPTIONEN]"));
  EXPECT_THAT(german, HasSubstr("Beispiel:\n  vanzet show lathe"));
}

TEST_F(Help, AGermanTableHasGermanHeadingsAndJsonHasNone) {
  MakeUpgradedProject();
  const std::string de = "VANZET_LANGUAGE=de";
  EXPECT_THAT(Vanzet("items lathe --summary", de).out, HasSubstr("  Op  Bezeichnung"));
  EXPECT_EQ(Vanzet("show lathe --json", de).out, Vanzet("show lathe --json").out);
  EXPECT_EQ(Vanzet("show nothing", de).err, Vanzet("show nothing").err);
}

TEST_F(Help, IsWhatTheManualHolds) {
  EXPECT_TRUE(Vanzet("manual").out == ReadBytes(VANZET_SOURCE_DIR "/docs/command-line.md"))
      << "renew it: vanzet manual > docs/command-line.md";
}

TEST_F(Help, IsThereAsManPages) {
  const std::string pages = VANZET_BINARY_DIR "/share/man/";
  const std::string commands = ReadBytes(pages + "man1/vanzet.1");
  EXPECT_THAT(commands, HasSubstr(".TH \"VANZET\" \"1\""));
  EXPECT_THAT(commands, HasSubstr(".SH vanzet vdm save\n"));
  EXPECT_THAT(ReadBytes(pages + "man5/vanzet-script.5"), HasSubstr(".TH \"VANZET-SCRIPT\" \"5\""));
  EXPECT_THAT(ReadBytes(pages + "man7/vanzet-macro.7"), HasSubstr(".TH \"VANZET-MACRO\" \"7\""));
}

/// The lines of a page outside of the requests that the converter writes.
std::vector<std::string> OddLinesOf(const std::string& page) {
  static const std::set<std::string> kRequests = {".nh", ".TH", ".SH", ".SS", ".PP", ".RS",
                                                  ".RE", ".nf", ".fi", ".IP", ".TS", ".TE",
                                                  ".br", ".ti", ".in", ".ce", ".ad"};
  std::vector<std::string> odd;
  std::istringstream lines(page);
  std::string line;
  std::getline(lines, line);  // has tables set
  while (std::getline(lines, line)) {
    const bool isRequest = line.starts_with('.') || line.starts_with('\'');
    if (isRequest && !kRequests.contains(line.substr(0, line.find(' ')))) odd.push_back(line);
    if (line.find("\\fC") != std::string::npos) odd.push_back(line);
  }
  return odd;
}

TEST_F(Help, OfManPagesKeepsLinesThatBeginWithAPoint) {
  for (const auto& entry : std::filesystem::recursive_directory_iterator(VANZET_BINARY_DIR "/share/man")) {
    if (!entry.is_regular_file() || entry.path().extension() == ".gz") continue;
    EXPECT_THAT(OddLinesOf(ReadBytes(entry.path())), testing::IsEmpty()) << entry.path();
  }
  const std::string page = ReadBytes(VANZET_BINARY_DIR "/share/man/man5/vanzet-vdm.5");
  EXPECT_THAT(page, HasSubstr("record\n\\&.Billet definition\n\\&.100\n"));
}

TEST_F(Help, OfManPagesHasNoEmptyHeadingOfTables) {
  const std::string page = ReadBytes(VANZET_BINARY_DIR "/share/man/man1/vanzet.1");
  EXPECT_THAT(page, HasSubstr("\nlw(15n) lw(50n).\n\\fBDIR\\fR\t"));
}

TEST_F(Help, AFullStandardOutputIsAFault) {
  MakeUpgradedProject();
  const Outcome shown = Vanzet("show lathe >/dev/full");
  EXPECT_EQ(shown.status, 1);
  EXPECT_EQ(shown.err, "vanzet: standard output cannot be written\n");
}

TEST_F(Help, AClosedStandardOutputIsAFaultAndHitsNoOtherFile) {
  MakeProject();
  const Outcome upgraded = Vanzet("upgrade lathe --trace calls.jsonl >&-");
  EXPECT_EQ(upgraded.status, 1);
  EXPECT_THAT(ReadBytes(folder / "calls.jsonl"), testing::Not(HasSubstr("spur 0")));
}

}  // namespace
}  // namespace vanzet::test
