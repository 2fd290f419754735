#include "platform/huge_pages.h"

#include <gtest/gtest.h>

#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <memory>
#include <string>

namespace vanzet::platform {
namespace {

/// The flags that the kernel reports for the mapping of an address; empty where it reports none.
std::string FlagsOf(const void* address) {
  std::ifstream maps("/proc/self/smaps");
  const auto at = reinterpret_cast<std::uintptr_t>(address);
  bool inside = false;
  for (std::string line; std::getline(maps, line);) {
    std::uintptr_t begin = 0;
    std::uintptr_t end = 0;
    if (std::sscanf(line.c_str(), "%" SCNxPTR "-%" SCNxPTR, &begin, &end) == 2)
      inside = begin <= at && at < end;
    if (inside && line.starts_with("VmFlags:")) return line + " ";
  }
  return "";
}

/// Whether memory of that size has the flag of huge pages after it was asked for.
bool Asked(std::size_t bytes) {
  const auto memory = std::make_unique_for_overwrite<char[]>(bytes);
  PreferHugePages(memory.get(), bytes);
  memory[bytes / 2] = 1;
  return FlagsOf(memory.get() + bytes / 2).find(" hg ") != std::string::npos;
}

TEST(HugePages, AreAskedForLargeMemoryAlone) {
  if (FlagsOf(&kHugePagesFrom).empty() || !std::ifstream("/sys/kernel/mm/transparent_hugepage/enabled")) {
    GTEST_SKIP() << "this kernel has no huge pages, or does not report them";
  }
  // More than what a heap keeps in one piece, so that the memory has a mapping of its own.
  EXPECT_TRUE(Asked(std::size_t{64} << 20));
  EXPECT_FALSE(Asked(kHugePagesFrom - 1));
}

}  // namespace
}  // namespace vanzet::platform
