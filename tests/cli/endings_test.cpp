#include "run_vanzet.h"

#include "support/places.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;

/// Runs that a signal ends.
class Endings : public CommandLineTest {
 protected:
  /// Ends a script by the signal while it waits for the reader of its transcript. The status is that of the
  /// script's process.
  Outcome EndScriptBy(const std::string& signal) {
    std::string script = "select 19\n";
    for (int i = 0; i < 200; ++i) script += "state\n";  // more than a pipe takes
    WriteBytes(folder / "states.txt", script);
    WriteBytes(folder / "end.sh", "'" VANZET_PROGRAM
                                  "' script lathe states.txt --transcript pipe & script=$!\n"
                                  "exec 3<pipe; read -r line <&3; kill -" +
                                      signal + " $script; wait $script\n");
    return Vanzet("--version", "mkfifo pipe; bash end.sh; exit $?;");
  }
};

TEST_F(Endings, OfAnInterruptedScriptAreOneLineAndTheSignal) {
  MakeUpgradedProject();
  const std::string before = Vanzet("items lathe").out;
  const Outcome ended = EndScriptBy("TERM");
  EXPECT_EQ(ended.status, 128 + 15);
  EXPECT_THAT(ended.err, HasSubstr("vanzet: interrupted; nothing of this run was stored\n"));
  EXPECT_EQ(Vanzet("items lathe").out, before);
}

TEST_F(Endings, OfAScriptByAFaultOfTheProgramAreOneLineAndAFailure) {
#if defined(__SANITIZE_ADDRESS__)
  GTEST_SKIP() << "the sanitizer handles faults";
#endif
  MakeUpgradedProject();
  const Outcome ended = EndScriptBy("SEGV");
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.err, "vanzet: internal error (signal 11); nothing of this run was stored\n");
}

}  // namespace
}  // namespace vanzet::test
