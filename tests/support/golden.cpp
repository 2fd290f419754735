#include "support/golden.h"

#include <filesystem>
#include <sstream>

#include "support/temporary_folder.h"

namespace vanzet::test {
namespace {

/// The first line, from 1, in which two texts differ.
int FirstDifference(const std::string& a, const std::string& b) {
  std::istringstream first(a);
  std::istringstream second(b);
  std::string x;
  std::string y;
  for (int line = 1;; ++line) {
    const bool hasX = static_cast<bool>(std::getline(first, x));
    const bool hasY = static_cast<bool>(std::getline(second, y));
    if (hasX != hasY || x != y || !hasX) return line;
  }
}

}  // namespace

testing::AssertionResult MatchesGolden(const std::string& text, const std::string& name) {
  const std::filesystem::path file = std::filesystem::path(VANZET_GOLDEN_DIR) / name;
  const std::filesystem::path actual = file.string() + ".actual";
  const std::string expected = ReadBytes(file);
  if (text == expected && std::filesystem::exists(file)) {
    std::filesystem::remove(actual);
    return testing::AssertionSuccess();
  }
  WriteBytes(actual, text);
  return testing::AssertionFailure() << file.string() << " differs from line "
                                     << FirstDifference(text, expected) << " on; what came is in "
                                     << actual.string();
}

std::string Lines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

}  // namespace vanzet::test
