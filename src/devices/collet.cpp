#include "devices/kinds.h"
#include "devices/notation.h"

namespace vanzet::devices {
namespace {

using namespace notation;

// clang-format off
constexpr Letter kLetters[] = {
    // letter unit entry  drawn    name
    {'A', kMm, kNeeded,   kAbove0, "Radius of the body"},
    {'B', kMm, kNeeded,   kAbove0, "Overall length"},
    {'C', kMm, kNeeded,   kAbove0, "Length of the head"},
    {'D', kMm, kNeeded,   kAbove0, "Radius of the bore"},
    {'E', kMm, kNeeded,   kAbove0, "Radius of the head"},
    {'F', kMm, kOptional, kFrom0,  "Chamfer of the head"},
};

constexpr Corner kCorners[] = {
    {"0", "D"}, {"-B", "D"}, {"-B", "A"}, {"-C", "A"}, {"-C", "E"}, {"0", "E", "F"},
};

constexpr std::string_view kLines[] = {
    "s102=h {E}", "s103=v {-C}", "s104=h {A}", "s105=v {-B}", "s106=h {D}", "p100=s106 s101",
    "k{n} p100 as106 ts105 ts104 as103 ts102 ch{F} as101 p100 ek", "del s100>106 p100",
};

constexpr Outline kOutlines[] = {{Bore::kAny, kCorners, kLines}};

constexpr Measure kMeasures[] = {
    //                 lane from                       to
    {'A', kAcross, kInside, 0, "-C-(B-C)*0.35", "0",  "-C-(B-C)*0.35", "A", 0.7},
    {'B', kAlong,  kAbove,  1, "-B",            "A",  "0",             "E"},
    {'C', kAlong,  kAbove,  0, "-C",            "E",  "0",             "E"},
    {'D', kAcross, kInside, 0, "-C-(B-C)*0.75", "0",  "-C-(B-C)*0.75", "D"},
    {'E', kAcross, kInside, 0, "-C*0.5",        "0",  "-C*0.5",        "E"},
    {'F', kCorner, kRight,  0, "0",             "E",  "0",             "E"},
};

constexpr Rule kRules[] = {{"D", "A"}, {"D", "E"}, {"C", "B"}, {"F", "E-D"}, {"F", "C"}};

constexpr Device kDevices[] = {
    {.code = 2, .picture = 2058, .letters = kLetters, .outlines = kOutlines, .measures = kMeasures,
     .rules = kRules, .example = {2, 30, 80, 18, 16, 42, 4}, .standIn = "-C"},
};
// clang-format on

}  // namespace

constinit const Kind kCollet = {
    .word = "collet",
    .devices = kDevices,
    .own = {.code = 105, .picture = 2057, .letters = kOwnLetters},
    .ownOlder = 111,
    .ownClass = DeviceClass::kChuck,
    .clamping = Clamping::kOutside,
};

}  // namespace vanzet::devices
