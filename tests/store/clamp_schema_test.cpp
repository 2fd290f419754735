#include "store/clamp_schema.h"

#include <gmock/gmock.h>

#include <string>

namespace vanzet {
namespace {

/// The header that an operation of this shape gets.
std::string HeaderOf(const ClampOperation& operation) {
  std::string counts = " " + std::to_string(operation.Head().size());
  int sections = 1;
  for (const auto& section : operation.sections) {
    if (!section) continue;
    counts += " " + std::to_string(section->size());
    ++sections;
  }
  return std::to_string(operation.kind) + " 1 " + std::to_string(sections) + counts;
}

TEST(ClampOperations, HaveTheHeadersOfTheSchema) {
  const char* const expected[] = {
      "1 1 1 2",     "2 1 4 1 3 2 4", "2 1 4 1 3 2 4", "2 1 4 1 1 0 0", "2 1 4 1 1 0 0", "2 1 2 1 0",
      "2 1 3 2 0 0", "2 1 2 1 0",     "2 1 3 2 0 0",   "2 1 2 1 0",     "2 1 2 1 3",     "2 1 2 1 0",
      "2 1 2 1 0",   "2 1 2 1 0",     "2 1 2 1 0",     "2 1 2 1 0",     "2 1 2 1 1",     "2 1 2 1 1",
  };
  for (std::size_t i = 0; i < kClampOperations; ++i) {
    EXPECT_EQ(HeaderOf(ClampOperations()[i]), expected[i]) << i;
  }
}

TEST(ClampOperations, HaveNoGapAmongTheirSections) {
  for (const ClampOperation& operation : ClampOperations()) {
    for (std::size_t i = 1; i < operation.sections.size(); ++i) {
      EXPECT_TRUE(operation.sections[i - 1] || !operation.sections[i]) << operation.head[0];
    }
  }
}

}  // namespace
}  // namespace vanzet
