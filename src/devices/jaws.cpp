#include "devices/kinds.h"
#include "devices/notation.h"

namespace vanzet::devices {
namespace {

using namespace notation;

// In a letter's row: unit, entry, drawn, name. In a measure's row: lane, first point, second point.
// A number that is defined a second time replaces the first definition: s101 of the first two jaws.
// clang-format off

// Jaw 1.
constexpr Letter kLetters1[] = {
    {'A', kMm, kNeeded, kAbove0,    "Overall height"},
    {'B', kMm, kNeeded, kAbove0,    "Overall width"},
    {'C', kMm, kNeeded, kAbove0,    "Width at the top"},
    {'D', kMm, kNeeded, kAbove0,    "Width of the middle step"},
    {'E', kMm, kNeeded, kAbove0,    "Height of the low step"},
    {'F', kMm, kNeeded, kAbove0,    "Height of the middle step"},
    {'G', kMm, kNeeded, kNever,     kStored},
    {'H', kMm, kNeeded, kThickness, "Thickness"},
};

constexpr Corner kCorners1[] = {
    {"B", "0"}, {"0", "0"}, {"0", "A"}, {"C", "A"}, {"C", "F"}, {"D", "F"}, {"D", "E"}, {"B", "E"},
};

constexpr std::string_view kLines1[] = {
    "s101=v {B}", "s102={E} ls100", "s103={B-D} ls101", "s104={F} ls100", "s105={B-C} ls101",
    "s106={A} ls100", "s107={B} ls101", "p100=s100 s101",
    "k{n} p100 as100 ts107 ts106 as105 ts104 as103 ts102 as101 p100 ek", "del s100>107 p100",
};

constexpr Measure kMeasures1[] = {
    {'A', kAcross, kLeft,   0, "0",         "0",  "0",         "A"},
    {'B', kAlong,  kBelow,  0, "0",         "0",  "B",         "0"},
    {'C', kAlong,  kAbove,  0, "0",         "A",  "C",         "A"},
    {'D', kAlong,  kAbove,  1, "0",         "A",  "D",         "F"},
    {'E', kAcross, kInside, 0, "(D+B)*0.5", "0",  "(D+B)*0.5", "E"},
    {'F', kAcross, kInside, 0, "(C+D)*0.5", "0",  "(C+D)*0.5", "F"},
};

constexpr Rule kRules1[] = {{"C", "D"}, {"D", "B"}};

constexpr Outline kOutlines1[] = {{Bore::kAny, kCorners1, kLines1}};

// Jaw 2.
constexpr Letter kLetters2[] = {
    {'A', kMm, kNeeded, kAbove0,    "Overall height"},
    {'B', kMm, kNeeded, kAbove0,    "Overall width"},
    {'C', kMm, kNeeded, kAbove0,    "Width of the foot"},
    {'D', kMm, kNeeded, kAbove0,    "Width of the middle step"},
    {'E', kMm, kNeeded, kAbove0,    "Height of the top step"},
    {'F', kMm, kNeeded, kAbove0,    "Depth of the middle step"},
    {'G', kMm, kNeeded, kNever,     kStored},
    {'H', kMm, kNeeded, kThickness, "Thickness"},
};

constexpr Corner kCorners2[] = {
    {"0", "0"}, {"0", "A"}, {"B", "A"}, {"B", "A-E"}, {"D", "A-E"}, {"D", "A-F"}, {"C", "A-F"},
    {"C", "0"},
};

constexpr std::string_view kLines2[] = {
    "s101=v {B}", "s102={A} ls100", "s103={B} ls101", "s104={B-C} ls101", "s105={A-F} ls100",
    "s106={B-D} ls101", "s107={A-E} ls100", "p100=s100 s103",
    "k{n} p100 ts103 ts102 as101 as107 as106 as105 as104 as100 p100 ek", "del s100>107 p100",
};

constexpr Measure kMeasures2[] = {
    {'A', kAcross, kLeft,   0, "0",         "0",    "0",         "A"},
    {'B', kAlong,  kAbove,  0, "0",         "A",    "B",         "A"},
    {'C', kAlong,  kBelow,  0, "0",         "0",    "C",         "0"},
    {'D', kAlong,  kBelow,  1, "0",         "0",    "D",         "A-F"},
    {'E', kAcross, kInside, 0, "(D+B)*0.5", "A-E",  "(D+B)*0.5", "A"},
    {'F', kAcross, kInside, 0, "(C+D)*0.5", "A-F",  "(C+D)*0.5", "A"},
};

constexpr Rule kRules2[] = {{"C", "D"}, {"D", "B"}, {"E", "A"}, {"F", "A"}};

constexpr Outline kOutlines2[] = {{Bore::kAny, kCorners2, kLines2}};

// Jaw 3.
constexpr Letter kLetters3[] = {
    {'A', kMm, kNeeded, kAbove0,    "Overall height"},
    {'B', kMm, kNeeded, kAbove0,    "Overall width"},
    {'C', kMm, kNeeded, kAbove0,    "Width of the foot"},
    {'D', kMm, kNeeded, kAbove0,    "Height of the overhang"},
    {'E', kMm, kNeeded, kNever,     kStored},
    {'F', kMm, kNeeded, kThickness, "Thickness"},
};

constexpr Corner kCorners3[] = {
    {"0", "0"}, {"0", "A"}, {"B", "A"}, {"B", "A-D"}, {"C", "A-D"}, {"C", "0"},
};

constexpr std::string_view kLines3[] = {
    "s102={A} ls100", "s103={B} rs101", "s104={A-D} ls100", "s105={C} rs101", "p100=s100 s101",
    "k{n} p100 ts101 ts102 as103 as104 as105 as100 p100 ek", "del s100>105 p100",
};

constexpr Measure kMeasures3[] = {
    {'A', kAcross, kLeft,   0, "0", "0",    "0", "A"},
    {'B', kAlong,  kAbove,  0, "0", "A",    "B", "A"},
    {'C', kAlong,  kBelow,  0, "0", "0",    "C", "0"},
    {'D', kAcross, kRight,  0, "B", "A-D",  "B", "A"},
};

constexpr Rule kRules3[] = {{"C", "B"}, {"D", "A"}};

constexpr Outline kOutlines3[] = {{Bore::kAny, kCorners3, kLines3}};

// Jaw 4.
constexpr Letter kLetters4[] = {
    {'A', kMm, kNeeded, kAbove0,    "Overall height"},
    {'B', kMm, kNeeded, kAbove0,    "Overall width"},
    {'C', kMm, kNeeded, kAbove0,    "Width at the top"},
    {'D', kMm, kNeeded, kAbove0,    "Height of the step"},
    {'E', kMm, kNeeded, kNever,     kStored},
    {'F', kMm, kNeeded, kThickness, "Thickness"},
};

constexpr Corner kCorners4[] = {{"0", "0"}, {"0", "A"}, {"C", "A"}, {"C", "D"}, {"B", "D"}, {"B", "0"}};

constexpr std::string_view kLines4[] = {
    "s102={A} ls100", "s103={C} rs101", "s104={D} ls100", "s105={B} rs101", "p100=s100 s101",
    "k{n} p100 ts101 ts102 as103 ts104 as105 as100 p100 ek", "del s100>105 p100",
};

constexpr Measure kMeasures4[] = {
    {'A', kAcross, kLeft,   0, "0", "0",  "0", "A"},
    {'B', kAlong,  kBelow,  0, "0", "0",  "B", "0"},
    {'C', kAlong,  kAbove,  0, "0", "A",  "C", "A"},
    {'D', kAcross, kRight,  0, "B", "0",  "B", "D"},
};

constexpr Rule kRules4[] = {{"C", "B"}};

constexpr Outline kOutlines4[] = {{Bore::kAny, kCorners4, kLines4}};

// Jaw 5.
constexpr Letter kLetters5[] = {
    {'A', kMm, kNeeded, kAbove0,    "Overall height"},
    {'B', kMm, kNeeded, kAbove0,    "Overall width"},
    {'C', kMm, kNeeded, kNever,     kStored},
    {'D', kMm, kNeeded, kThickness, "Thickness"},
};

constexpr Corner kCorners5[] = {{"0", "0"}, {"0", "A"}, {"B", "A"}, {"B", "0"}};

constexpr std::string_view kLines5[] = {
    "s102={A} ls100", "s103={B} rs101", "p100=s100 s101", "k{n} p100 ts101 ts102 as103 as100 p100 ek",
    "del s100>103 p100",
};

constexpr Measure kMeasures5[] = {
    {'A', kAcross, kLeft,   0, "0", "0",  "0", "A"},
    {'B', kAlong,  kBelow,  0, "0", "0",  "B", "0"},
};

constexpr Outline kOutlines5[] = {{Bore::kAny, kCorners5, kLines5}};

// Jaw 6.
constexpr Letter kLetters6[] = {
    {'A', kMm, kNeeded, kAbove0,    "Overall height"},
    {'B', kMm, kNeeded, kAbove0,    "Overall width"},
    {'C', kMm, kNeeded, kAbove0,    "Width at the top"},
    {'D', kMm, kNeeded, kAbove0,    "Height at the slope's end"},
    {'E', kMm, kNeeded, kThickness, "Thickness"},
};

constexpr Corner kCorners6[] = {{"0", "0"}, {"0", "A"}, {"C", "A"}, {"B", "D"}, {"B", "0"}};

constexpr std::string_view kLines6[] = {
    "s102={A} ls100", "s104={B} rs101", "s105={C} rs101", "s106={D} ls100", "p101=s102 s105",
    "p102=s104 s106", "p100=s100 s101", "s103=p101 p102",
    "k{n} p100 ts101 ts102 ts103 as104 as100 p100 ek", "del s100>106 p100>102",
};

constexpr Measure kMeasures6[] = {
    {'A', kAcross, kLeft,   0, "0", "0",  "0", "A"},
    {'B', kAlong,  kBelow,  0, "0", "0",  "B", "0"},
    {'C', kAlong,  kAbove,  0, "0", "A",  "C", "A"},
    {'D', kAcross, kRight,  0, "B", "0",  "B", "D"},
};

constexpr Outline kOutlines6[] = {{Bore::kAny, kCorners6, kLines6}};

// Jaw 7.
constexpr Letter kLetters7[] = {
    {'A', kMm, kNeeded, kAbove0,    "Overall height"},
    {'B', kMm, kNeeded, kAbove0,    "Overall width"},
    {'C', kMm, kNeeded, kAbove0,    "Width at the top"},
    {'D', kMm, kNeeded, kAbove0,    "Height of the lip"},
    {'E', kMm, kNeeded, kAbove0,    "Width of the lip"},
    {'F', kMm, kNeeded, kAbove0,    "Depth of the groove"},
    {'G', kMm, kNeeded, kNever,     kStored},
    {'H', kMm, kNeeded, kThickness, "Thickness"},
};

constexpr Corner kCorners7[] = {
    {"0", "0"}, {"0", "A"}, {"C", "A"}, {"C", "D-F"}, {"B-E", "D-F"}, {"B-E", "D"}, {"B", "D"},
    {"B", "0"},
};

constexpr std::string_view kLines7[] = {
    "s102={A} ls100", "s103={C} rs101", "s104={D-F} ls100", "s105={B-E} rs101", "s106={D} ls100",
    "s107={B} rs101", "p100=s100 s101",
    "k{n} p100 ts101 ts102 as103 ts104 ts105 ts106 as107 as100 p100 ek", "del s100>107 p100",
};

constexpr Measure kMeasures7[] = {
    {'A', kAcross, kLeft,   0, "0",           "0",    "0",           "A"},
    {'B', kAlong,  kBelow,  0, "0",           "0",    "B",           "0"},
    {'C', kAlong,  kAbove,  0, "0",           "A",    "C",           "A"},
    {'D', kAcross, kRight,  0, "B",           "0",    "B",           "D"},
    {'E', kAlong,  kAbove,  0, "B-E",         "D",    "B",           "D"},
    {'F', kAcross, kInside, 0, "(C+B-E)*0.5", "D-F",  "(C+B-E)*0.5", "D"},
};

constexpr Rule kRules7[] = {{"C", "B-E"}, {"F", "D"}};

constexpr Outline kOutlines7[] = {{Bore::kAny, kCorners7, kLines7}};

// Jaw 8.
constexpr Letter kLetters8[] = {
    {'A', kMm, kNeeded, kAbove0,    "Overall height"},
    {'B', kMm, kNeeded, kAbove0,    "Overall width"},
    {'C', kMm, kNeeded, kAbove0,    "Width of the foot"},
    {'D', kMm, kNeeded, kAbove0,    "Height of the overhang"},
    {'E', kMm, kNeeded, kAbove0,    "Width of the lip"},
    {'F', kMm, kNeeded, kAbove0,    "Depth of the groove"},
    {'G', kMm, kNeeded, kNever,     kStored},
    {'H', kMm, kNeeded, kThickness, "Thickness"},
};

constexpr Corner kCorners8[] = {
    {"0", "0"}, {"0", "A"}, {"B", "A"}, {"B", "A-D"}, {"B-E", "A-D"}, {"B-E", "A-D+F"}, {"C", "A-D+F"},
    {"C", "0"},
};

constexpr std::string_view kLines8[] = {
    "s102={A} ls100", "s103={B} rs101", "s104={A-D} ls100", "s105={B-E} rs101", "s106={A-D+F} ls100",
    "s107={C} rs101", "p100=s100 s101",
    "k{n} p100 ts101 ts102 as103 as104 ts105 as106 as107 as100 p100 ek", "del s100>107 p100",
};

constexpr Measure kMeasures8[] = {
    {'A', kAcross, kLeft,   0, "0",           "0",    "0",           "A"},
    {'B', kAlong,  kAbove,  0, "0",           "A",    "B",           "A"},
    {'C', kAlong,  kBelow,  0, "0",           "0",    "C",           "0"},
    {'D', kAcross, kRight,  0, "B",           "A-D",  "B",           "A"},
    {'E', kAlong,  kBelow,  0, "B-E",         "A-D",  "B",           "A-D"},
    {'F', kAcross, kInside, 0, "(C+B-E)*0.5", "A-D",  "(C+B-E)*0.5", "A-D+F"},
};

constexpr Rule kRules8[] = {{"C", "B-E"}, {"D", "A"}, {"F", "D"}};

constexpr Outline kOutlines8[] = {{Bore::kAny, kCorners8, kLines8}};

constexpr Device kDevices[] = {
    {.code = 5, .picture = 2062, .letters = kLetters1, .outlines = kOutlines1, .measures = kMeasures1,
     .rules = kRules1, .example = {5, 50, 76, 22, 48, 17, 33, 14, 28}},
    {.code = 6, .picture = 2063, .letters = kLetters2, .outlines = kOutlines2, .measures = kMeasures2,
     .rules = kRules2, .example = {6, 50, 76, 26, 52, 16, 32, 14, 28}},
    {.code = 7, .picture = 2064, .letters = kLetters3, .outlines = kOutlines3, .measures = kMeasures3,
     .rules = kRules3, .example = {7, 46, 70, 40, 16, 12, 25}},
    {.code = 8, .picture = 2065, .letters = kLetters4, .outlines = kOutlines4, .measures = kMeasures4,
     .rules = kRules4, .example = {8, 46, 70, 34, 20, 12, 25}},
    {.code = 9, .picture = 2066, .letters = kLetters5, .outlines = kOutlines5, .measures = kMeasures5,
     .example = {9, 46, 70, 12, 25}},
    {.code = 10, .picture = 2067, .letters = kLetters6, .outlines = kOutlines6, .measures = kMeasures6,
     .example = {10, 46, 70, 34, 20, 25}},
    {.code = 11, .picture = 2068, .letters = kLetters7, .outlines = kOutlines7, .measures = kMeasures7,
     .rules = kRules7, .example = {11, 50, 84, 26, 38, 20, 18, 14, 28}},
    {.code = 12, .picture = 2069, .letters = kLetters8, .outlines = kOutlines8, .measures = kMeasures8,
     .rules = kRules8, .example = {12, 50, 84, 30, 34, 20, 16, 14, 28}},
};
// clang-format on

}  // namespace

constinit const Kind kJaw = {
    .word = "jaw",
    .devices = kDevices,
    .own = {.code = 104, .picture = 2061, .letters = kOwnLetters},
    .ownOlder = 110,
    .ownClass = DeviceClass::kJaw,
    .clamping = Clamping::kNotFixed,
};

}  // namespace vanzet::devices
