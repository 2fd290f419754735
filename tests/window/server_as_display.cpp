#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <string>

#include "test_display.h"

namespace vanzet::test {
namespace {

/// Becomes an X server without a screen, which ends with this process.
[[noreturn]] void BecomeServer(int numberTo) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  const std::string descriptor = std::to_string(numberTo);
  execlp("Xvfb", "Xvfb", "-displayfd", descriptor.c_str(), "-screen", "0", "1600x1000x24", "-nolisten", "tcp",
         nullptr);
  _exit(127);
}

/// Starts a server; the number of its display, empty when it does not start.
std::string StartServer() {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) return {};
  if (fork() == 0) BecomeServer(ends[1]);
  close(ends[1]);
  std::string number;
  char letter = 0;
  while (read(ends[0], &letter, 1) == 1 && letter != '\n') number += letter;
  close(ends[0]);
  return number;
}

}  // namespace

void UseTestDisplay() {
  const std::string number = StartServer();
  ASSERT_NE(number, "") << "Xvfb does not start";
  setenv("DISPLAY", (":" + number).c_str(), 1);
  setenv("QT_QPA_PLATFORM", "xcb", 1);
  setenv("LIBGL_ALWAYS_SOFTWARE", "1", 1);
}

}  // namespace vanzet::test
