#include "devices/kinds.h"
#include "devices/notation.h"

namespace vanzet::devices {
namespace {

using namespace notation;

// clang-format off
constexpr Letter kLetters[] = {
    // letter unit entry  drawn    name
    {'A', kMm, kOptional, kAbove0, "Outer radius"},
    {'B', kMm, kNeeded,   kNot0,   "Overall length"},
    {'C', kMm, kNeeded,   kAny,    "Radius of the bore"},
};

constexpr Corner kCornersWithBore[] = {{"0", "C"}, {"-abs B", "C"}, {"-abs B", "A"}, {"0", "A"}};
constexpr Corner kCorners[]         = {{"0", "0"}, {"-abs B", "0"}, {"-abs B", "A"}, {"0", "A"}};

constexpr std::string_view kLinesWithBore[] = {
    "s102=h {A}", "s103=v {-abs B}", "s104=h {C}", "p100=s101 s104",
    "k{n} p100 as104 ts103 ts102 as101 p100 ek", "del s104", "del s100>103 p100",
};
constexpr std::string_view kLines[] = {
    "s102=h {A}", "s103=v {-abs B}", "p100=s100 s101", "k{n} p100 as100 ts103 ts102 as101 p100 ek",
    "del s100>103 p100",
};

constexpr Outline kOutlines[] = {
    {Bore::kAbove0, kCornersWithBore, kLinesWithBore},
    {Bore::kNone,   kCorners,         kLines},
};

constexpr Measure kMeasures[] = {
    //                 lane from                    to
    {'A', kAcross, kInside, 0, "-abs B*0.35", "0",  "-abs B*0.35", "A"},
    {'B', kAlong,  kAbove,  0, "-abs B",      "A",  "0",           "A"},
    {'C', kAcross, kInside, 0, "-abs B*0.7",  "0",  "-abs B*0.7",  "C"},
};

constexpr Rule kRules[] = {{"0", "A"}, {"C", "A"}};

constexpr Device kDevices[] = {
    {.code = 1, .picture = 2056, .letters = kLetters, .outlines = kOutlines, .measures = kMeasures,
     .rules = kRules, .example = {1, 80, 90, 25}, .standIn = kThinPlate},
};
// clang-format on

}  // namespace

constinit const Kind kChuck = {
    .word = "chuck",
    .devices = kDevices,
    .own = {.code = 103, .picture = 2055, .letters = kOwnLetters},
    .ownOlder = 109,
    .ownClass = DeviceClass::kChuck,
    .clamping = Clamping::kNotFixed,
};

}  // namespace vanzet::devices
