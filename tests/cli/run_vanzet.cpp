#include "run_vanzet.h"

#include <sys/wait.h>

#include <cstdlib>

namespace vanzet::test {

Outcome CommandLineTest::Vanzet(const std::string& arguments, const std::string& before,
                                const std::string& input) {
  const TemporaryFolder streams;
  WriteBytes(streams / "in", input);
  const std::string command = "cd '" + folder.path().string() + "' && { " + before +
                              " '" VANZET_PROGRAM "' " + arguments + "; } <'" + (streams / "in").string() +
                              "' >'" + (streams / "out").string() + "' 2>'" + (streams / "err").string() +
                              "'";
  const int status = std::system(command.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), ReadBytes(streams / "out"),
          ReadBytes(streams / "err")};
}

void CommandLineTest::MakeProject() {
  const Outcome made = Vanzet("new lathe");
  ASSERT_EQ(made.status, 0) << made.err;
}

void CommandLineTest::MakeUpgradedProject() {
  MakeProject();
  const Outcome upgraded = Vanzet("upgrade lathe");
  ASSERT_EQ(upgraded.status, 0) << upgraded.err;
}

}  // namespace vanzet::test
