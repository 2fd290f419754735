#include "devices/kinds.h"
#include "devices/notation.h"

namespace vanzet::devices {
namespace {

using namespace notation;

// clang-format off
constexpr Letter kLetters[] = {
    // letter unit entry drawn   name
    {'A', kMm, kNeeded, kAbove0, "Radius of the flange"},
    {'B', kMm, kNeeded, kAbove0, "Overall length"},
    {'C', kMm, kNeeded, kAbove0, "Length of the first step"},
    {'D', kMm, kNeeded, kAbove0, "Length of the second step"},
    {'E', kMm, kNeeded, kAbove0, "Length to the flange"},
    {'F', kMm, kNeeded, kAbove0, "Radius of the first step"},
    {'G', kMm, kNeeded, kAbove0, "Radius of the second step"},
    {'H', kMm, kNeeded, kAbove0, "Radius of the third step"},
};

constexpr Corner kCorners[] = {
    {"0", "0"}, {"-B", "0"}, {"-B", "A"}, {"-E", "A"}, {"-E", "H"}, {"-D", "H"}, {"-D", "G"}, {"-C", "G"},
    {"-C", "F"}, {"0", "F"},
};

constexpr std::string_view kLines[] = {
    "s102=h {F}", "s103=v {-C}", "s104=h {G}", "s105=v {-D}", "s106=h {H}", "s107=v {-E}", "s108=h {A}",
    "s109=v {-B}", "p100=s100 s101",
    "k{n} p100 as100 ts109 ts108 as107 ts106 ts105 ts104 as103 ts102 as101 p100 ek", "del s100>109 p100",
};

constexpr Outline kOutlines[] = {{Bore::kAny, kCorners, kLines}};

constexpr Measure kMeasures[] = {
    //                 lane from                    to
    {'A', kAcross, kInside, 0, "-(B+E)*0.5", "0",  "-(B+E)*0.5", "A", 0.6},
    {'B', kAlong,  kAbove,  3, "-B",         "A",  "0",          "F"},
    {'C', kAlong,  kAbove,  0, "-C",         "G",  "0",          "F"},
    {'D', kAlong,  kAbove,  1, "-D",         "H",  "0",          "F"},
    {'E', kAlong,  kAbove,  2, "-E",         "A",  "0",          "F"},
    {'F', kAcross, kInside, 0, "-C*0.5",     "0",  "-C*0.5",     "F"},
    {'G', kAcross, kInside, 0, "-(C+D)*0.5", "0",  "-(C+D)*0.5", "G", 0.55},
    {'H', kAcross, kInside, 0, "-(D+E)*0.5", "0",  "-(D+E)*0.5", "H", 0.75},
};

constexpr Rule kRules[] = {{"C", "D"}, {"D", "E"}, {"E", "B"}};

constexpr Device kDevices[] = {
    {.code = 3, .picture = 2071, .letters = kLetters, .outlines = kOutlines, .measures = kMeasures,
     .rules = kRules, .example = {3, 46, 100, 36, 52, 70, 14, 24, 36}, .standIn = "-D"},
};
// clang-format on

}  // namespace

constinit const Kind kMandrel = {
    .word = "mandrel",
    .devices = kDevices,
    .own = {.code = 106, .picture = 2070, .letters = kOwnLetters},
    .ownOlder = 112,
    .ownClass = DeviceClass::kChuck,
    .clamping = Clamping::kInside,
};

}  // namespace vanzet::devices
