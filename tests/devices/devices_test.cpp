#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <vector>

#include "devices/formula.h"
#include "devices/kinds.h"
#include "devices/outline.h"

// Every fact of a device is there, and the facts of a device agree with each other. A new kind or type is
// covered as soon as it has a row.

namespace vanzet::devices {
namespace {

const DeviceParams kOnes = {.A = 1, .B = 1, .C = 1, .D = 1, .E = 1, .F = 1, .G = 1, .H = 1, .I = 1, .J = 1};

/// The letters that formulas use.
std::set<char> LettersIn(const std::string& formulas) {
  std::set<char> letters;
  for (const char c : formulas) {
    if (c >= 'A' && c <= 'J') letters.insert(c);
  }
  return letters;
}

std::set<char> OutlineLetters(const Device& device) {
  std::set<char> letters;
  for (const Letter& each : device.letters) {
    if (each.IsOfOutline()) letters.insert(each.letter);
  }
  return letters;
}

/// The formulas in the braces of a line.
std::vector<std::string> InBraces(std::string_view line) {
  std::vector<std::string> formulas;
  for (std::size_t open; (open = line.find('{')) != std::string_view::npos;) {
    const std::size_t close = line.find('}', open);
    formulas.emplace_back(line.substr(open + 1, close - open - 1));
    line.remove_prefix(close + 1);
  }
  return formulas;
}

std::string FormulasOf(const Device& device, const Measure& measure) {
  std::string formulas = std::to_string(device.code) + " ";
  for (const std::string_view each : {measure.fromX, measure.fromY, measure.toX, measure.toY}) {
    formulas.append(each).append(" ");
  }
  return formulas;
}

/// Calls for every device of the catalogue.
template <class Check>
void ForEachParametric(const Check& check) {
  for (const Kind* const kind : Kinds()) {
    for (const Device& device : kind->devices) check(device);
  }
}

TEST(Kinds, AreInTheOrderOfTheirNumbersWithWordsOfTheirOwn) {
  std::set<std::string_view> words;
  std::int32_t last = 0;
  for (const Kind* const kind : Kinds()) {
    EXPECT_GT(kind->First(), last);
    last = kind->First();
    EXPECT_TRUE(words.insert(kind->word).second && !kind->word.empty()) << kind->word;
    EXPECT_EQ(FindKind(kind->First()), kind);
    EXPECT_FALSE(WordOf(kind->ownClass).empty());
  }
  EXPECT_EQ(FindKind(0), nullptr);
  EXPECT_EQ(FindKind(6), nullptr) << "a jaw, but not the number of its kind";
}

TEST(Kinds, NumberTheShapesOfTheirTypesInTheOrderOfTheirCodes) {
  for (const Kind* const kind : Kinds()) {
    EXPECT_TRUE(std::ranges::is_sorted(kind->devices, std::less_equal{}, &Device::code)) << kind->word;
    std::int32_t shape = 0;
    for (const Device& device : kind->devices) EXPECT_EQ(kind->ShapeOf(device.code), ++shape) << device.code;
    EXPECT_EQ(kind->ShapeOf(kind->own.code), 0);
  }
}

TEST(Kinds, CompriseEachCodeOnce) {
  const std::set<std::int32_t> own = {103, 104, 105, 106, 107, 109, 110, 111, 112, 113, 115};
  for (std::int32_t type = -300; type <= 300; ++type) {
    const auto comprises = [type](const Kind* kind) { return kind->Has(type); };
    const bool isDevice = (type >= 1 && type <= 14) || own.contains(type);
    EXPECT_EQ(std::ranges::count_if(Kinds(), comprises), isDevice ? 1 : 0) << type;
    EXPECT_EQ(KindOf(type) != nullptr, isDevice) << type;
    EXPECT_EQ(IsOwn(type), own.contains(type)) << type;
  }
  for (const std::int32_t type : {INT32_MIN, INT32_MAX}) EXPECT_EQ(KindOf(type), nullptr);
}

TEST(Kinds, AnswerForParametricOwnAndOlderCodes) {
  const std::set<std::int32_t> chucks = {1, 103, 109}, centers = {13, 14, 115};
  const std::set<std::int32_t> jaws = {5, 6, 7, 8, 9, 10, 11, 12, 104, 110};
  for (std::int32_t type = -2; type <= 120; ++type) {
    EXPECT_EQ(IsChuck(type), chucks.contains(type)) << type;
    EXPECT_EQ(IsJaw(type), jaws.contains(type)) << type;
    EXPECT_EQ(IsCenter(type), centers.contains(type)) << type;
  }
}

TEST(Kinds, KnowTheNewerOfTwoCodes) {
  for (std::int32_t type = -2; type <= 120; ++type) {
    EXPECT_EQ(NewerCode(type), type >= 109 && type <= 113 ? type - 6 : type);
  }
}

TEST(Kinds, FixTheClampingOfWhatHoldsTheWorkWithoutJaws) {
  for (const Kind* const kind : Kinds()) {
    const bool isFixed = kind == &kCollet || kind == &kMandrel || kind == &kFaceDriver;
    EXPECT_EQ(kind->clamping != Clamping::kNotFixed, isFixed) << kind->word;
  }
  EXPECT_EQ(kMandrel.clamping, Clamping::kInside);
}

TEST(DeviceClasses, HaveTheNumbersAndWordsOfTheFile) {
  EXPECT_EQ(WordOf(static_cast<DeviceClass>(0)), "chuck");
  EXPECT_EQ(WordOf(static_cast<DeviceClass>(1)), "jaw");
  EXPECT_EQ(WordOf(static_cast<DeviceClass>(2)), "");
  EXPECT_EQ(WordOf(static_cast<DeviceClass>(3)), "center");
  EXPECT_EQ(DeviceClassNamed("jaw"), DeviceClass::kJaw);
  EXPECT_EQ(DeviceClassNamed("collet"), std::nullopt);
}

TEST(Devices, AreInTheOrderOfTheirCodesAndFoundByThem) {
  EXPECT_TRUE(std::ranges::is_sorted(Devices(), std::less_equal{}, &Device::code));
  EXPECT_EQ(Devices().size(), 20U);
  for (const Device* const device : Devices()) EXPECT_EQ(Find(device->code), device);
  for (const std::int32_t code : {-1, 0, 15, 108, 109, 114, 116}) EXPECT_EQ(Find(code), nullptr) << code;
}

TEST(Devices, HaveAPictureEach) {
  std::set<std::int32_t> pictures;
  for (const Device* const device : Devices()) {
    EXPECT_TRUE(pictures.insert(device->picture).second) << device->code;
    EXPECT_EQ(FindByPicture(device->picture), device);
  }
  EXPECT_EQ(*pictures.begin(), 2052);
  EXPECT_EQ(*pictures.rbegin(), 2071);
  EXPECT_EQ(FindByPicture(0), nullptr);
  for (const std::int32_t older : {109, 110, 111, 112, 113})
    EXPECT_EQ(PictureOf(older), PictureOf(older - 6));
  for (const std::int32_t none : {0, 15, 102, 108, 114, 116}) EXPECT_EQ(PictureOf(none), 0);
}

TEST(Devices, HaveEveryColumnOfTheCatalogue) {
  ForEachParametric([](const Device& device) {
    EXPECT_FALSE(device.letters.empty()) << device.code;
    EXPECT_FALSE(device.outlines.empty()) << device.code;
    EXPECT_FALSE(device.measures.empty()) << device.code;
    EXPECT_EQ(device.example.type, device.code);
    const bool needsStandIn = !IsJaw(device.code) && !IsCenter(device.code);
    EXPECT_EQ(!device.standIn.empty(), needsStandIn) << device.code;
  });
}

TEST(Devices, OfTheirOwnHaveNoOutline) {
  for (const Kind* const kind : Kinds()) {
    EXPECT_TRUE(kind->own.outlines.empty() && kind->own.measures.empty()) << kind->word;
    EXPECT_TRUE(OutlineLetters(kind->own).empty()) << kind->word;
    EXPECT_NE(FindLetter(kind->own.code, 'B'), nullptr) << "where it is held";
  }
}

TEST(Letters, OfTheCatalogueFollowEachOtherFromAOnAndHaveNames) {
  ForEachParametric([](const Device& device) {
    char next = 'A';
    for (const Letter& letter : device.letters) {
      EXPECT_EQ(letter.letter, next++) << device.code;
      EXPECT_NE(letter.name, std::string()) << device.code << letter.letter;
      EXPECT_NE(letter.unit, Unit::kNone) << device.code << letter.letter;
      EXPECT_NE(letter.entry, Entry::kClosed) << device.code << letter.letter;
    }
  });
}

TEST(Letters, OfOwnDevicesAreOpenForTheDistanceOfACenterAlone) {
  for (const Kind* const kind : Kinds()) {
    for (const Letter& letter : kind->own.letters) {
      const bool isOpen = letter.entry != Entry::kClosed;
      EXPECT_EQ(isOpen, kind == &kCenter && letter.letter == 'A') << kind->word << letter.letter;
    }
  }
}

TEST(Letters, MayStay0WhereADeviceCanDoWithoutThem) {
  std::string optional;
  ForEachParametric([&](const Device& device) {
    for (const Letter& letter : device.letters) {
      if (letter.entry == Entry::kOptional) optional += std::to_string(device.code) + letter.letter + " ";
    }
  });
  EXPECT_EQ(optional, "1A 2F 4H ");
}

TEST(Letters, OfJawsEndWithTheThickness) {
  ForEachParametric([](const Device& device) {
    for (const Letter& letter : device.letters) {
      const bool isLast = letter.letter == device.letters.back().letter;
      EXPECT_EQ(letter.drawn == Drawn::kThickness, IsJaw(device.code) && isLast) << device.code;
    }
  });
}

TEST(ThicknessOf, IsTheLetterOfAJawOrAUsualOne) {
  EXPECT_EQ(ThicknessOf({.type = 5, .H = 28}), 28);
  EXPECT_EQ(ThicknessOf({.type = 10, .E = 25}), 25);
  for (const std::int32_t type : {-1, 0, 1, 14, 104, 110}) EXPECT_EQ(ThicknessOf({.type = type}), 2.05);
}

TEST(Outlines, UseTheLettersThatTheirDeviceSays) {
  ForEachParametric([](const Device& device) {
    const Outline& outline = device.outlines.front();
    std::string corners, lines;
    for (const Corner& corner : outline.corners)
      corners.append(corner.x).append(corner.y).append(corner.chamfer);
    for (const std::string_view line : outline.lines) {
      for (const std::string& formula : InBraces(line)) lines += formula;
    }
    EXPECT_EQ(LettersIn(corners), OutlineLetters(device)) << device.code;
    EXPECT_EQ(LettersIn(lines), OutlineLetters(device)) << device.code;
  });
}

TEST(Outlines, HoldForEveryBore) {
  ForEachParametric([](const Device& device) {
    for (const double bore : {-1.0, 0.0, 1.0}) {
      EXPECT_NE(FindOutline({.type = device.code, .C = bore}), nullptr) << device.code;
    }
  });
}

TEST(Outlines, HoldOnlyFormulasThatCanBeRead) {
  ForEachParametric([](const Device& device) {
    for (const Outline& outline : device.outlines) {
      for (const std::string_view line : outline.lines) {
        EXPECT_EQ(std::ranges::count(line, '{'), std::ranges::count(line, '}')) << line;
        for (const std::string& formula : InBraces(line)) {
          EXPECT_TRUE(formula == "n" || std::isfinite(Evaluate(formula, kOnes))) << line;
        }
      }
    }
    if (!device.standIn.empty()) {
      EXPECT_TRUE(std::isfinite(Evaluate(device.standIn, kOnes))) << device.code;
    }
  });
}

TEST(Measures, ShowEveryLetterOfTheOutlineOnceInOrder) {
  ForEachParametric([](const Device& device) {
    std::string measured, drawn;
    for (const Measure& measure : device.measures) measured += measure.letter;
    for (const char letter : OutlineLetters(device)) drawn += letter;
    EXPECT_EQ(measured, drawn) << device.code;
  });
}

TEST(Measures, SpanWhatTheLetterSays) {
  ForEachParametric([](const Device& device) {
    for (const Measure& measure : device.measures) {
      if (measure.kind == MeasureKind::kAngle || measure.kind == MeasureKind::kCorner) continue;
      const bool isAlong = measure.kind == MeasureKind::kAlong;
      const double from = Evaluate(isAlong ? measure.fromX : measure.fromY, device.example);
      const double to = Evaluate(isAlong ? measure.toX : measure.toY, device.example);
      EXPECT_DOUBLE_EQ(std::abs(to - from), ValueOf(device.example, measure.letter))
          << FormulasOf(device, measure) << measure.letter;
    }
  });
}

TEST(Rules, HoldForTheExamplesAndUseLettersOfTheOutline) {
  ForEachParametric([](const Device& device) {
    for (const Rule& rule : device.rules) {
      EXPECT_LT(Evaluate(rule.less, device.example), Evaluate(rule.greater, device.example)) << device.code;
      for (const char letter : LettersIn(std::string(rule.less).append(rule.greater))) {
        EXPECT_TRUE(OutlineLetters(device).contains(letter)) << device.code << letter;
      }
    }
  });
}

TEST(Examples, GiveEveryLetterOfTheirDeviceAndNoOther) {
  ForEachParametric([](const Device& device) {
    for (char letter = 'A'; letter <= 'J'; ++letter) {
      const bool isGiven = ValueOf(device.example, letter) != 0;
      EXPECT_EQ(isGiven, FindLetter(device.code, letter) != nullptr) << device.code << letter;
    }
  });
}

}  // namespace
}  // namespace vanzet::devices
