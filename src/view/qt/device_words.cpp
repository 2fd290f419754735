#include "view/qt/device_words.h"

#include <algorithm>

namespace vanzet::view::qt {
namespace {

constexpr Unit kMm = Unit::kMillimetre;
constexpr Unit kDeg = Unit::kDegree;

constexpr const char* kLength = "Overall length";
constexpr const char* kHeight = "Overall height";
constexpr const char* kWidth = "Overall width";
constexpr const char* kThickness = "Thickness";
constexpr const char* kBodyRadius = "Radius of the body";
constexpr const char* kBoreRadius = "Radius of the bore";
constexpr const char* kFootWidth = "Width of the foot";
constexpr const char* kTopWidth = "Width at the top";
constexpr const char* kStepWidth = "Width of the middle step";
constexpr const char* kStored = "Stored, not drawn";

// clang-format off
constexpr LetterWords kLetters[] = {
    {   1, 'A', kMm,  "Outer radius"},
    {   1, 'B', kMm,  kLength},
    {   1, 'C', kMm,  kBoreRadius},

    {   2, 'A', kMm,  kBodyRadius},
    {   2, 'B', kMm,  kLength},
    {   2, 'C', kMm,  "Length of the head"},
    {   2, 'D', kMm,  kBoreRadius},
    {   2, 'E', kMm,  "Radius of the head"},
    {   2, 'F', kMm,  "Chamfer of the head"},

    {   3, 'A', kMm,  "Radius of the flange"},
    {   3, 'B', kMm,  kLength},
    {   3, 'C', kMm,  "Length of the first step"},
    {   3, 'D', kMm,  "Length of the second step"},
    {   3, 'E', kMm,  "Length to the flange"},
    {   3, 'F', kMm,  "Radius of the first step"},
    {   3, 'G', kMm,  "Radius of the second step"},
    {   3, 'H', kMm,  "Radius of the third step"},

    {   4, 'A', kMm,  kBodyRadius},
    {   4, 'B', kMm,  kLength},
    {   4, 'C', kMm,  "Length of the front"},
    {   4, 'D', kMm,  "Length of the cone"},
    {   4, 'E', kMm,  kStored},
    {   4, 'F', kMm,  "Radius of the front"},
    {   4, 'G', kMm,  kStored},
    {   4, 'H', kMm,  kStored},
    {   4, 'I', kDeg, "Angle of the cone"},

    {   5, 'A', kMm,  kHeight},
    {   5, 'B', kMm,  kWidth},
    {   5, 'C', kMm,  kTopWidth},
    {   5, 'D', kMm,  kStepWidth},
    {   5, 'E', kMm,  "Height of the low step"},
    {   5, 'F', kMm,  "Height of the middle step"},
    {   5, 'G', kMm,  kStored},
    {   5, 'H', kMm,  kThickness},

    {   6, 'A', kMm,  kHeight},
    {   6, 'B', kMm,  kWidth},
    {   6, 'C', kMm,  kFootWidth},
    {   6, 'D', kMm,  kStepWidth},
    {   6, 'E', kMm,  "Height of the top step"},
    {   6, 'F', kMm,  "Depth of the middle step"},
    {   6, 'G', kMm,  kStored},
    {   6, 'H', kMm,  kThickness},

    {   7, 'A', kMm,  kHeight},
    {   7, 'B', kMm,  kWidth},
    {   7, 'C', kMm,  kFootWidth},
    {   7, 'D', kMm,  "Height of the overhang"},
    {   7, 'E', kMm,  kStored},
    {   7, 'F', kMm,  kThickness},

    {   8, 'A', kMm,  kHeight},
    {   8, 'B', kMm,  kWidth},
    {   8, 'C', kMm,  kTopWidth},
    {   8, 'D', kMm,  "Height of the step"},
    {   8, 'E', kMm,  kStored},
    {   8, 'F', kMm,  kThickness},

    {   9, 'A', kMm,  kHeight},
    {   9, 'B', kMm,  kWidth},
    {   9, 'C', kMm,  kStored},
    {   9, 'D', kMm,  kThickness},

    {  10, 'A', kMm,  kHeight},
    {  10, 'B', kMm,  kWidth},
    {  10, 'C', kMm,  kTopWidth},
    {  10, 'D', kMm,  "Height at the slope's end"},
    {  10, 'E', kMm,  kThickness},

    {  11, 'A', kMm,  kHeight},
    {  11, 'B', kMm,  kWidth},
    {  11, 'C', kMm,  kTopWidth},
    {  11, 'D', kMm,  "Height of the lip"},
    {  11, 'E', kMm,  "Width of the lip"},
    {  11, 'F', kMm,  "Depth of the groove"},
    {  11, 'G', kMm,  kStored},
    {  11, 'H', kMm,  kThickness},

    {  12, 'A', kMm,  kHeight},
    {  12, 'B', kMm,  kWidth},
    {  12, 'C', kMm,  kFootWidth},
    {  12, 'D', kMm,  "Height of the overhang"},
    {  12, 'E', kMm,  "Width of the lip"},
    {  12, 'F', kMm,  "Depth of the groove"},
    {  12, 'G', kMm,  kStored},
    {  12, 'H', kMm,  kThickness},

    {  13, 'A', kMm,  kLength},
    {  13, 'B', kMm,  "Length to the collar"},
    {  13, 'C', kMm,  "Length of the point"},
    {  13, 'D', kMm,  "Radius of the point"},
    {  13, 'E', kDeg, "Angle of the collar"},
    {  13, 'F', kMm,  kBodyRadius},
    {  13, 'G', kDeg, "Angle of the point"},

    {  14, 'A', kMm,  kLength},
    {  14, 'B', kMm,  "Length to the collar"},
    {  14, 'C', kMm,  "Length of the point"},
    {  14, 'D', kMm,  "Radius of the point"},
    {  14, 'E', kDeg, "Angle of the collar"},
    {  14, 'F', kMm,  kBodyRadius},
    {  14, 'G', kDeg, "Angle of the point"},
    {  14, 'H', kMm,  "Radius of the rear flange"},
    {  14, 'I', kMm,  "Length of the rear flange"},

    { 115, 'A', kMm,  "Distance of the point"},
};
// clang-format on

}  // namespace

QString UnitText(Unit unit) {
  switch (unit) {
    case Unit::kMillimetre: return QStringLiteral("mm");
    case Unit::kDegree: return QStringLiteral("\u00B0");
    default: return {};
  }
}

const LetterWords* FindLetterWords(std::int32_t type, char letter) {
  const auto* const row = std::ranges::find_if(
      kLetters, [&](const LetterWords& words) { return words.type == type && words.letter == letter; });
  return row == std::end(kLetters) ? nullptr : row;
}

}  // namespace vanzet::view::qt
