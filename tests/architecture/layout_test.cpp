#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "support/places.h"

namespace vanzet {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kColumns = 110;

bool IsComment(std::string_view line) {
  const std::size_t start = line.find_first_not_of(' ');
  return start != std::string_view::npos && line.substr(start).starts_with("//");
}

/// Characters of UTF-8.
std::size_t WidthOf(std::string_view line) {
  std::size_t width = 0;
  for (const char c : line) width += (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
  return width;
}

// The formatter breaks code and leaves comments as they are, so that aligned tables in them stay aligned.
TEST(Layout, CommentsFitIntoTheColumns) {
  for (const char* const root : {"base", "src", "bench", "tests", "benchmarks", "fuzz"}) {
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(VANZET_SOURCE_DIR) / root)) {
      if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
      std::ifstream text(entry.path());
      std::string line;
      bool isTable = false;  // laid out by hand
      for (int number = 1; std::getline(text, line); ++number) {
        if (line.find("// clang-format o") != std::string::npos) isTable = line.ends_with("off");
        if (isTable) continue;
        EXPECT_FALSE(IsComment(line) && WidthOf(line) > kColumns)
            << entry.path().string() << ':' << number << ": " << WidthOf(line) << " columns";
      }
    }
  }
}

}  // namespace
}  // namespace vanzet
