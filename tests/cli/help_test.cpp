#include "run_vanzet.h"

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
       {"", "dance", "show --rubbish", "show --spur x", "new", "vdm", "vdm save", "vdm save a b c d",
        "completion fish", "show --spur ''", "show --spur 0x1", "items --vdm -5", "items --vdm nan",
        "items --vdm 4294967291", "vdm save five x.vdm", "vdm save 1000 ''", "vdm load x.vdm five",
        "vdm check ''", "upgrade --trace ''"}) {
    const Outcome run = Vanzet(arguments);
    EXPECT_EQ(run.status, 2) << arguments;
    EXPECT_NE(run.err, "") << arguments;
    EXPECT_EQ(run.out, "") << arguments;
  }
}

TEST_F(Help, NamesAWordThatIsNoCommand) {
  EXPECT_EQ(Vanzet("dance").err, "vanzet: no such command: 'dance'; 'vanzet --help' lists the commands\n");
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
  EXPECT_THAT(german,
              HasSubstr("Gibt die Definition jeder Spindelspur aus.\nAufruf: vanzet show [OPTIONEN]"));
  EXPECT_THAT(german, HasSubstr("Beispiel:\n  vanzet show lathe"));
}

TEST_F(Help, AGermanTableHasGermanHeadingsAndJsonHasNone) {
  MakeUpgradedProject();
  const std::string de = "VANZET_LANGUAGE=de";
  EXPECT_THAT(Vanzet("show lathe", de).out, HasSubstr("  Op  Bezeichnung"));
  EXPECT_EQ(Vanzet("show lathe --json", de).out, Vanzet("show lathe --json").out);
  EXPECT_EQ(Vanzet("show nothing", de).err, Vanzet("show nothing").err);
}

TEST_F(Help, CompletionIsSomethingThatTheShellUnderstands) {
  WriteBytes(folder / "completion.bash", Vanzet("completion bash").out);
  WriteBytes(
      folder / "ask.bash",
      "source completion.bash\nCOMP_WORDS=(vanzet sh); COMP_CWORD=1; _vanzet; echo \"${COMPREPLY[*]}\"\n"
      "COMP_WORDS=(vanzet vdm ''); COMP_CWORD=2; _vanzet; echo \"${COMPREPLY[*]}\"\n"
      "COMP_WORDS=(vanzet show --s); COMP_CWORD=2; _vanzet; echo \"${COMPREPLY[*]}\"\n"
      "COMP_WORDS=(vanzet vdm check --j); COMP_CWORD=3; _vanzet; echo \"${COMPREPLY[*]}\"\n");
  const Outcome asked = Vanzet("--version", "bash ask.bash &&");
  EXPECT_THAT(asked.out, HasSubstr("show\nsave load check --help\n--spur\n--json\n")) << asked.err;
  EXPECT_THAT(Vanzet("completion zsh").out, HasSubstr("#compdef vanzet\n"));
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
