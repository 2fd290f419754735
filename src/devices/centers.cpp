#include "devices/kinds.h"
#include "devices/notation.h"

namespace vanzet::devices {
namespace {

using namespace notation;

// The point of a center is where the cone of the angle G meets the axis; the cone of the angle E leads from
// its collar at x = -B to the shaft at x = -C.
// In a letter's row: unit, entry, drawn, name. In a measure's row: lane, first point, second point.
// clang-format off

// A center with a plain shaft.
constexpr Letter kLetters1[] = {
    {'A', kMm,  kNeeded, kAbove0, "Overall length"},
    {'B', kMm,  kNeeded, kAbove0, "Length to the collar"},
    {'C', kMm,  kNeeded, kAbove0, "Length of the point"},
    {'D', kMm,  kNeeded, kAbove0, "Radius of the point"},
    {'E', kDeg, kNeeded, kAbove0, "Angle of the collar"},
    {'F', kMm,  kNeeded, kAbove0, "Radius of the body"},
    {'G', kDeg, kNeeded, kAbove0, "Angle of the point"},
};

constexpr Corner kCorners1[] = {
    {"-A", "0"}, {"-A", "F"}, {"-B", "F"}, {"-C", "F+(B-C)*tan(-E*0.5)"}, {"-C", "D"},
    {"D/tan(-G*0.5)", "D"}, {"0", "0"},
};

constexpr std::string_view kLines1[] = {
    "s100=h 0", "s101=v {-A}", "s102=h {F}", "s107=v 0", "s108={B}ls107", "p101=s102 s108",
    "s103=b{-E*0.5} p101", "s104={C} ls107", "s105=h {D}", "p102=s100 s107", "s106=b{-G*0.5} p102",
    "p100=s100 s101", "k{n} p100 ts101 ts102 ts103 as104 ts105 ts106 as100 p100 ek",
    "del s100>108 p100>102",
};

constexpr Measure kMeasures1[] = {
    {'A', kAlong,  kAbove,  2, "-A",         "F",  "0",          "0"},
    {'B', kAlong,  kAbove,  1, "-B",         "F",  "0",          "0"},
    {'C', kAlong,  kAbove,  0, "-C",         "D",  "0",          "0"},
    {'D', kAcross, kInside, 0, "-C*0.85",    "0",  "-C*0.85",    "D", 0.6},
    {'E', kAngle,  kInside, 0, "-B",         "F",  "-E*0.5",     "0"},
    {'F', kAcross, kInside, 0, "-(A+B)*0.5", "0",  "-(A+B)*0.5", "F"},
    {'G', kAngle,  kInside, 0, "0",          "0",  "180-G*0.5",  "180+G*0.5"},
};

constexpr Rule kRules1[] = {
    {"C", "B"}, {"B", "A"}, {"E", "180"}, {"G", "180"}, {"D", "C*tan(G*0.5)"},
    {"D", "F-(B-C)*tan(E*0.5)"},
};

constexpr Outline kOutlines1[] = {{Bore::kAny, kCorners1, kLines1}};

// A center with a flange at its rear.
constexpr Letter kLetters2[] = {
    {'A', kMm,  kNeeded, kAbove0, "Overall length"},
    {'B', kMm,  kNeeded, kAbove0, "Length to the collar"},
    {'C', kMm,  kNeeded, kAbove0, "Length of the point"},
    {'D', kMm,  kNeeded, kAbove0, "Radius of the point"},
    {'E', kDeg, kNeeded, kAbove0, "Angle of the collar"},
    {'F', kMm,  kNeeded, kAbove0, "Radius of the body"},
    {'G', kDeg, kNeeded, kAbove0, "Angle of the point"},
    {'H', kMm,  kNeeded, kAbove0, "Radius of the rear flange"},
    {'I', kMm,  kNeeded, kAbove0, "Length of the rear flange"},
};

constexpr Corner kCorners2[] = {
    {"-A", "0"}, {"-A", "H"}, {"-A+I", "H"}, {"-A+I", "F"}, {"-B", "F"}, {"-C", "F+(B-C)*tan(-E*0.5)"},
    {"-C", "D"}, {"D/tan(-G*0.5)", "D"}, {"0", "0"},
};

constexpr std::string_view kLines2[] = {
    "s100=h 0", "s101=v {-A}", "s102=h {F}", "s107=v 0", "s108={B}ls107", "p101=s102 s108",
    "s103=b{-E*0.5} p101", "s104={C} ls107", "s105=h {D}", "p102=s100 s107", "s106=b{-G*0.5} p102",
    "p100=s100 s101", "s109=h {H}", "s110={I} rs101",
    "k{n} p100 ts101 ts109 as110 ts102 ts103 as104 ts105 ts106 as100 p100 ek", "del s100>110 p100>102",
};

constexpr Measure kMeasures2[] = {
    {'A', kAlong,  kAbove,  2, "-A",           "H",   "0",            "0"},
    {'B', kAlong,  kAbove,  1, "-B",           "F",   "0",            "0"},
    {'C', kAlong,  kAbove,  0, "-C",           "D",   "0",            "0"},
    {'D', kAcross, kInside, 0, "-C*0.85",      "0",   "-C*0.85",      "D", 0.6},
    {'E', kAngle,  kInside, 0, "-B",           "F",   "-E*0.5",       "0"},
    {'F', kAcross, kInside, 0, "-(A-I+B)*0.5", "0",   "-(A-I+B)*0.5", "F"},
    {'G', kAngle,  kInside, 0, "0",            "0",   "180-G*0.5",    "180+G*0.5"},
    {'H', kAcross, kInside, 0, "-A+I*0.5",     "0",   "-A+I*0.5",     "H", 0.7},
    {'I', kAlong,  kBelow,  0, "-A",           "-H",  "-A+I",         "-H"},
};

constexpr Rule kRules2[] = {
    {"C", "B"}, {"B", "A-I"}, {"E", "180"}, {"G", "180"}, {"D", "C*tan(G*0.5)"},
    {"D", "F-(B-C)*tan(E*0.5)"},
};

constexpr Outline kOutlines2[] = {{Bore::kAny, kCorners2, kLines2}};

// A center that is kept in a VDM is the only own device with a value that can be changed.
constexpr Letter kLettersOfOwn[] = {
    {'A', kMm, kOptional, kNever, "Distance of the point"},
    {'B', kMm, kClosed,   kNever, ""},
};

constexpr Device kDevices[] = {
    {.code = 13, .picture = 2053, .letters = kLetters1, .outlines = kOutlines1, .measures = kMeasures1,
     .rules = kRules1, .example = {13, 120, 70, 45, 16, 60, 34, 60}},
    {.code = 14, .picture = 2054, .letters = kLetters2, .outlines = kOutlines2, .measures = kMeasures2,
     .rules = kRules2, .example = {14, 120, 70, 45, 16, 60, 32, 60, 46, 18}},
};
// clang-format on

}  // namespace

constinit const Kind kCenter = {
    .word = "center",
    .devices = kDevices,
    .own = {.code = 115, .picture = 2052, .letters = kLettersOfOwn},
    .ownOlder = 0,
    .ownClass = DeviceClass::kCenter,
    .clamping = Clamping::kNotFixed,
};

}  // namespace vanzet::devices
