#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <string>
#include <utility>

#include "sheet/code.h"

namespace vanzet::sheet {
namespace {

/// A code that was read back from its picture.
struct Squares {
  int side = 0;  ///< the border included
  std::set<std::pair<int, int>> dark;

  bool IsDark(int x, int y) const { return dark.contains({x, y}); }

  /// Whether one of the three large marks of a code begins there: a ring about nine squares.
  bool HasMarkAt(int left, int top) const {
    for (int y = 0; y < 7; ++y) {
      for (int x = 0; x < 7; ++x) {
        const int ring = std::max(std::abs(x - 3), std::abs(y - 3));
        if (IsDark(left + x, top + y) != (ring != 2)) return false;
      }
    }
    return true;
  }
};

Squares SquaresOf(const std::string& svg) {
  Squares squares;
  std::smatch match;
  EXPECT_TRUE(std::regex_search(svg, match, std::regex("viewBox=\"0 0 ([0-9]+) \\1\"")));
  squares.side = std::stoi(match[1]);
  const std::regex run("M([0-9]+) ([0-9]+)h([0-9]+)v1h-\\3z");
  for (std::sregex_iterator each(svg.begin(), svg.end(), run), end; each != end; ++each) {
    const int x = std::stoi((*each)[1]), y = std::stoi((*each)[2]), length = std::stoi((*each)[3]);
    for (int i = 0; i < length; ++i) squares.dark.emplace(x + i, y);
  }
  return squares;
}

TEST(Code, HasItsMarksWithinABorderOfFourSquares) {
  const auto svg = CodeSvg("file:///work/lathe");
  ASSERT_TRUE(svg);
  const Squares squares = SquaresOf(*svg);
  EXPECT_TRUE(squares.HasMarkAt(4, 4));
  EXPECT_TRUE(squares.HasMarkAt(squares.side - 11, 4));
  EXPECT_TRUE(squares.HasMarkAt(4, squares.side - 11));
  for (const auto& [x, y] : squares.dark) {
    EXPECT_TRUE(x >= 4 && y >= 4 && x < squares.side - 4 && y < squares.side - 4) << x << " " << y;
  }
}

TEST(Code, GrowsWithItsText) {
  const Squares small = SquaresOf(*CodeSvg("file:///a"));
  const Squares large = SquaresOf(*CodeSvg("file:///" + std::string(300, 'a')));
  EXPECT_EQ(small.side, 21 + 8) << "the smallest code there is";
  EXPECT_GT(large.side, small.side);
}

TEST(Code, OfOtherTextsDiffer) {
  EXPECT_NE(*CodeSvg("file:///a"), *CodeSvg("file:///b"));
  EXPECT_EQ(*CodeSvg("file:///a"), *CodeSvg("file:///a"));
}

TEST(Code, OfATextThatIsTooLongDoesNotExist) {
  EXPECT_FALSE(CodeSvg(std::string(5000, 'a')));
}

}  // namespace
}  // namespace vanzet::sheet
