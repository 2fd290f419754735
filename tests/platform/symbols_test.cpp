#include "platform/symbols.h"

#include <gtest/gtest.h>

extern "C" int VanzetSymbolOfThisProgram() {
  return 7;
}

namespace vanzet::platform {
namespace {

TEST(FindSymbol, FindsWhatTheRunningProgramExports) {
  EXPECT_EQ(FindSymbol(nullptr, "VanzetSymbolOfThisProgram"),
            reinterpret_cast<void*>(&VanzetSymbolOfThisProgram));
}

TEST(FindSymbol, IsNullForANameThatIsNotThere) {
  EXPECT_EQ(FindSymbol(nullptr, "VanzetNoSuchSymbol"), nullptr);
}

}  // namespace
}  // namespace vanzet::platform
