#include "run_vanzet.h"

namespace vanzet::test {
namespace {

/// The offers of a shell for the last word of a command line, in a folder with the files "completion" and
/// "job.json".
struct Completed {
  std::string line;
  std::string words;  ///< separated by blanks, sorted
};

const std::vector<Completed> kCompleted = {
    {"vanzet sh", "sheet show"},
    {"vanzet vdm sa", "save"},
    {"vanzet vdm ", "--help check load save"},
    {"vanzet show --s", "--spur"},
    {"vanzet vdm check --j", "--json"},
    {"vanzet completion ", "--help bash fish zsh"},
    {"vanzet export lathe --format s", "step stl"},
    {"vanzet export lathe --format=s", "step stl"},
    {"vanzet picture lathe --view e", "equipment"},
    {"vanzet contour offset x.txt 1 --method k", "kurve kurveex"},
    {"vanzet export lathe --out com", "completion"},
    {"vanzet define jo", "job.json"},
    {"vanzet help -", "--help"},
};

/// The completion in the shells themselves; a shell that is not installed is passed over.
class Completion : public CommandLineTest {
 protected:
  bool Has(const std::string& shell) {
    return Vanzet("--version", "command -v " + shell + " &&").status == 0;
  }

  /// Runs the lines in the shell, and returns what they print.
  std::string Run(const std::string& shell, const std::string& lines) {
    WriteBytes(folder / "completion", Vanzet("completion " + shell.substr(0, shell.find(' '))).out);
    WriteBytes(folder / "job.json", "{}");
    WriteBytes(folder / "ask", lines);
    const Outcome run = Vanzet("--version >/dev/null", "HOME=. TERM=dumb " + shell + " ask &&");
    EXPECT_EQ(run.status, 0) << run.err;
    return run.out;
  }

  static std::string Expected() {
    std::string text;
    for (const Completed& each : kCompleted) text += each.line + ": " + each.words + "\n";
    return text;
  }
};

TEST_F(Completion, OfBashOffersWordsValuesAndFiles) {
  std::string script = "source ./completion\n";
  for (const Completed& each : kCompleted) {
    // The shell splits at '=', which is a word of its own.
    script += "line='" + each.line +
              "'; read -ra COMP_WORDS <<<\"${line/=/ = }\"\n"
              "[[ $line == *' ' ]] && COMP_WORDS+=('')\n"
              "COMP_CWORD=$((${#COMP_WORDS[@]}-1)); _vanzet\n"
              "echo \"$line:\" $(printf '%s\\n' \"${COMPREPLY[@]}\" | LC_ALL=C sort)\n";
  }
  EXPECT_EQ(Run("bash", script), Expected());
}

TEST_F(Completion, OfFishOffersWordsValuesAndFiles) {
  if (!Has("fish")) GTEST_SKIP() << "fish is not installed";
  std::string script = "source ./completion\n";
  for (const Completed& each : kCompleted) {
    script += "set -l words (complete -C '" + each.line +
              "' | string replace -r '\\t.*' '' | string replace -r '^--format=' '' | env LC_ALL=C sort)\n"
              "echo '" +
              each.line + ":' $words\n";
  }
  EXPECT_EQ(Run("fish --no-config", script), Expected());
}

/// A terminal in which the lines are typed, each with the key of completion, which inserts the first word.
TEST_F(Completion, OfZshInsertsWordsValuesAndFiles) {
  if (!Has("zsh")) GTEST_SKIP() << "zsh is not installed";
  std::string script =
      "zmodload zsh/zpty\nzpty terminal 'zsh -f -i'\n"
      "zpty -w terminal 'PS1=; setopt menu_complete; autoload -U compinit; compinit -u -D; source "
      "./completion'\n"
      "zpty -w terminal 'vanzet() { print -r -- vanzet \"$@\" >>typed }'\n";
  std::string expected;
  for (const Completed& each : kCompleted) {
    script += "zpty -w terminal '" + each.line + "'$'\\t'\n";
    const std::string first = each.words.substr(0, each.words.find(' '));
    const std::size_t begin = each.line.find_last_of(" =") + 1;
    expected += each.line.substr(0, begin) + first + "\n";
  }
  Run("zsh -f", script + "zpty -w terminal exit\nwhile zpty -r terminal text; do :; done\n");
  EXPECT_EQ(ReadBytes(folder / "typed"), expected);
}

}  // namespace
}  // namespace vanzet::test
