#include <gmock/gmock.h>

#include <array>
#include <cstdio>
#include <memory>
#include <set>
#include <sstream>
#include <string>

#include "support/places.h"

namespace vanzet {
namespace {

/// What a shell command prints.
std::string OutputOf(const std::string& command) {
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  std::string output;
  std::array<char, 4096> part;
  while (pipe && fgets(part.data(), part.size(), pipe.get()) != nullptr) output += part.data();
  return output;
}

/// The last words of the lines of a command's output that hold `mark`.
std::set<std::string> LastWords(const std::string& command, const std::string& mark) {
  std::set<std::string> words;
  std::istringstream lines(OutputOf(command));
  for (std::string line; std::getline(lines, line);) {
    if (line.find(mark) != std::string::npos) words.insert(line.substr(line.find_last_of(" ") + 1));
  }
  return words;
}

TEST(Module, ExportsItsTwoFunctionsAndNothingElse) {
  EXPECT_THAT(LastWords("nm -D --defined-only " VANZET_MODULE_FILE, " "),
              testing::UnorderedElementsAre("ReOrgVdm", "mstart"));
}

TEST(ViewOnADisplay, ExportsItsEntryAndNothingElse) {
  EXPECT_THAT(LastWords("nm -D --defined-only " VANZET_VIEW_QT_FILE, " "),
              testing::ElementsAre("vanzetQtView"));
}

TEST(ViewOnADisplay, NeedsNothingOfTheModule) {
  const std::set<std::string> needed = LastWords("objdump -p " VANZET_VIEW_QT_FILE, "NEEDED");
  EXPECT_THAT(needed, testing::Contains("libQt6Widgets.so.6"));
  EXPECT_FALSE(needed.contains("libvanzet.so"));
}

TEST(Module, NeedsTheRuntimeOfTheLanguageOnly) {
  std::set<std::string> allowed = {"libstdc++.so.6", "libgcc_s.so.1", "libm.so.6", "libc.so.6",
                                   "ld-linux-x86-64.so.2"};
  if (VANZET_SANITIZED) allowed.insert({"libasan.so.8", "libubsan.so.1"});
  const std::set<std::string> needed = LastWords("objdump -p " VANZET_MODULE_FILE, "NEEDED");
  EXPECT_THAT(needed, testing::Contains("libstdc++.so.6"));
  for (const std::string& library : needed) EXPECT_TRUE(allowed.contains(library)) << library;
}

}  // namespace
}  // namespace vanzet
