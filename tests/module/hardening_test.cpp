#include <gmock/gmock.h>

#include <array>
#include <cstdio>
#include <memory>
#include <string>

#include "support/places.h"

namespace vanzet {
namespace {

using testing::HasSubstr;

std::string OutputOf(const std::string& command) {
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  std::string output;
  std::array<char, 4096> part;
  while (pipe && fgets(part.data(), part.size(), pipe.get()) != nullptr) output += part.data();
  return output;
}

struct Built {
  const char* name;
  const char* file;
  bool isProgram;
};

inline void PrintTo(const Built& built, std::ostream* out) {
  *out << built.name;
}

/// The files that people start, directly or not, as the compiler has left them.
class Hardening : public testing::TestWithParam<Built> {
 protected:
  static std::string Read(const std::string& command) {
    return OutputOf(command + " '" + GetParam().file + "'");
  }
};

TEST_P(Hardening, MakesWhatLeadsToTheLibrariesReadOnlyAtTheStart) {
  EXPECT_THAT(Read("readelf -lW"), HasSubstr("GNU_RELRO"));
  EXPECT_THAT(Read("readelf -dW"), HasSubstr("NOW"));
}

TEST_P(Hardening, LetsAProgramBeLoadedAnywhere) {
  EXPECT_THAT(Read("readelf -hW"), HasSubstr("DYN"));
  EXPECT_EQ(Read("readelf -dW").find("PIE") != std::string::npos, GetParam().isProgram);
}

TEST_P(Hardening, KeepsTheStackFromBeingRun) {
  EXPECT_THAT(Read("readelf -lW"), testing::ContainsRegex("GNU_STACK.* RW  "));
}

TEST_P(Hardening, NoticesOverwrittenReturnAddresses) {
  EXPECT_THAT(Read("nm -D --undefined-only"), HasSubstr("__stack_chk_fail"));
}

TEST_P(Hardening, ChecksPositionsInTheContainersOfTheLibrary) {
  EXPECT_THAT(Read("nm -D --undefined-only"), HasSubstr("__glibcxx_assert_fail"));
}

TEST_P(Hardening, MarksWhereAnIndirectCallMayLead) {
  EXPECT_THAT(Read("objdump -d --section=.text"), HasSubstr("endbr64"));
}

const Built kBuilt[] = {
    {"vanzet", VANZET_PROGRAM, true},         {"window", VANZET_BINARY_DIR "/bin/vanzet-window", true},
    {"exchange", VANZET_EXCHANGE_FILE, true}, {"module", VANZET_MODULE_FILE, false},
    {"view", VANZET_VIEW_QT_FILE, false},     {"solids", VANZET_BINARY_DIR "/lib/libvanzet-solids.so", false},
};

/// A small file may call no function of the C library that has a checked form.
TEST(HardeningOfTheProgram, CallsTheCheckedFunctionsOfTheCLibrary) {
  EXPECT_THAT(OutputOf("nm -D --undefined-only '" VANZET_PROGRAM "'"),
              testing::ContainsRegex("__[a-z]*printf_chk"));
}

INSTANTIATE_TEST_SUITE_P(Of, Hardening, testing::ValuesIn(kBuilt),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace vanzet
