#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <vector>

#include "devices/device_contour_lines.h"
#include "devices/device_outlines.h"
#include "devices/device_types.h"
#include "devices/formula.h"

namespace vanzet {
namespace {

const DeviceParams kOnes = {.A = 1, .B = 1, .C = 1, .D = 1, .E = 1, .F = 1, .G = 1, .H = 1, .I = 1, .J = 1};

/// The letters that the formulas of a text use.
std::set<char> LettersOf(const std::string& formulas) {
  std::set<char> letters;
  for (const char c : formulas) {
    if (c >= 'A' && c <= 'J') letters.insert(c);
  }
  return letters;
}

std::set<char> Letters(std::string_view text) {
  return {text.begin(), text.end()};
}

/// What stands in braces.
std::vector<std::string> InBraces(std::string_view line) {
  std::vector<std::string> formulas;
  for (std::size_t open; (open = line.find('{')) != std::string_view::npos;) {
    const std::size_t close = line.find('}', open);
    formulas.emplace_back(line.substr(open + 1, close - open - 1));
    line.remove_prefix(close + 1);
  }
  return formulas;
}

TEST(DeviceTypes, StandInTheOrderOfTheirCodes) {
  EXPECT_TRUE(std::ranges::is_sorted(DeviceTypes(), std::less_equal{}, &DeviceType::code));
  EXPECT_EQ(DeviceTypes().size(), 20U);
}

TEST(DeviceTypes, HaveAPictureEach) {
  std::set<std::int32_t> pictures;
  for (const DeviceType& type : DeviceTypes()) pictures.insert(type.picture);
  EXPECT_EQ(pictures.size(), DeviceTypes().size());
  EXPECT_EQ(*pictures.begin(), 2052);
  EXPECT_EQ(*pictures.rbegin(), 2071);
}

TEST(DeviceTypes, FindTheirRow) {
  EXPECT_EQ(FindDeviceType(4)->name, "Face Driver");
  EXPECT_EQ(FindDeviceType(104)->picture, 2061);
  for (const std::int32_t code : {-1, 0, 15, 108, 109, 114, 116})
    EXPECT_EQ(FindDeviceType(code), nullptr) << code;
}

TEST(DeviceTypes, KeepTheLettersOfTheirOutlineAndThickness) {
  for (const DeviceType& type : DeviceTypes()) {
    for (const char letter : type.outline) EXPECT_TRUE(type.keeps.find(letter) != std::string_view::npos);
    const bool isJaw = type.code >= 5 && type.code <= 12;
    EXPECT_EQ(type.thickness != ' ', isJaw) << type.code;
    if (isJaw) {
      EXPECT_EQ(type.thickness, type.keeps.back()) << type.code;
    }
    EXPECT_EQ(IsOwnVdmType(type.code), type.outline.empty()) << type.code;
  }
}

TEST(DeviceOutlines, UseTheLettersThatTheirTypeNames) {
  for (const DeviceOutline& row : DeviceOutlines()) {
    if (row.bore == Bore::kNone) continue;
    std::string formulas;
    for (const OutlineCorner& corner : row.corners)
      formulas.append(corner.x).append(corner.y).append(corner.chamfer);
    EXPECT_EQ(LettersOf(formulas), Letters(FindDeviceType(row.type)->outline)) << row.type;
  }
}

TEST(DeviceContourLines, UseTheLettersThatTheirTypeNames) {
  for (const DeviceContourLines& row : AllDeviceContourLines()) {
    if (row.bore == Bore::kNone) continue;
    std::string formulas;
    for (const std::string_view line : row.lines) {
      for (const std::string& formula : InBraces(line)) formulas += formula;
    }
    EXPECT_EQ(LettersOf(formulas), Letters(FindDeviceType(row.type)->outline)) << row.type;
  }
}

TEST(DeviceContourLines, HaveARowForEachOutline) {
  const auto lines = AllDeviceContourLines();
  const auto outlines = DeviceOutlines();
  ASSERT_EQ(lines.size(), outlines.size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    EXPECT_EQ(lines[i].type, outlines[i].type);
    EXPECT_EQ(lines[i].bore, outlines[i].bore);
  }
}

TEST(DeviceContourLines, HoldOnlyFormulasThatCanBeRead) {
  for (const DeviceContourLines& row : AllDeviceContourLines()) {
    for (const std::string_view line : row.lines) {
      EXPECT_EQ(std::ranges::count(line, '{'), std::ranges::count(line, '}')) << line;
      for (const std::string& formula : InBraces(line)) {
        EXPECT_TRUE(formula == "n" || std::isfinite(Evaluate(formula, kOnes))) << line;
      }
    }
  }
}

std::string Shown(const std::vector<OutlineVertex>& outline) {
  std::string text;
  for (const auto& [x, y] : outline) {
    const auto shown = [](double value) {
      return std::to_string(static_cast<int>(std::lround(value * 1000)));
    };
    text += "(" + shown(x) + ", " + shown(y) + ") ";
  }
  return text;
}

TEST(OutlineOf, GivesAChuckItsBore) {
  EXPECT_EQ(Shown(OutlineOf({.type = 1, .A = 100, .B = 50, .C = 20})),
            "(0, 20000) (-50000, 20000) (-50000, 100000) (0, 100000) ");
  EXPECT_EQ(Shown(OutlineOf({.type = 1, .A = 100, .B = 50, .C = -3})),
            "(0, 0) (-50000, 0) (-50000, 100000) (0, 100000) ");
}

TEST(OutlineOf, LaysAChuckBehindItsFaceWhateverTheSignOfB) {
  EXPECT_EQ(Shown(OutlineOf({.type = 1, .A = 100, .B = -50})),
            "(0, 0) (-50000, 0) (-50000, 100000) (0, 100000) ");
}

TEST(OutlineOf, CutsTheChamferOfACollet) {
  const DeviceParams collet = {.type = 2, .A = 40, .B = 60, .C = 10, .D = 15, .E = 30, .F = 2};
  EXPECT_EQ(Shown(OutlineOf(collet)),
            "(0, 15000) (-60000, 15000) (-60000, 40000) (-10000, 40000) (-10000, 30000) (-2000, 30000) (0, "
            "28000) ");
}

TEST(OutlineOf, LeavesACornerWhoseChamferDoesNotFit) {
  for (const double chamfer : {0.0, -1.0, 10.5}) {
    const DeviceParams collet = {.type = 2, .A = 40, .B = 60, .C = 10, .D = 15, .E = 30, .F = chamfer};
    EXPECT_EQ(OutlineOf(collet).size(), 6U) << chamfer;
  }
}

TEST(OutlineOf, BringsTheConesOfACenterToItsPoint) {
  const DeviceParams center = {.type = 13, .A = 120, .B = 80, .C = 100, .D = 10, .E = 60, .F = 20, .G = 90};
  const std::vector<OutlineVertex> outline = OutlineOf(center);
  ASSERT_EQ(outline.size(), 7U);
  EXPECT_NEAR(outline[3].x, -100, 1e-12);
  EXPECT_NEAR(outline[3].y, 20 + 20 * std::tan(std::acos(-1.0) / 6), 1e-12) << "half the angle E upwards";
  EXPECT_NEAR(outline[5].x, -10, 1e-12) << "a cone of 90 degrees is as long as its radius";
  EXPECT_EQ(outline[6].x, 0);
}

TEST(OutlineOf, IsEmptyForATypeWithoutOutline) {
  for (const std::int32_t type : {-1, 0, 15, 103, 115})
    EXPECT_TRUE(OutlineOf({.type = type}).empty()) << type;
}

}  // namespace
}  // namespace vanzet
