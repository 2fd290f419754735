#include "devices/kinds.h"
#include "devices/notation.h"

namespace vanzet::devices {
namespace {

using namespace notation;

// clang-format off
constexpr Letter kLetters[] = {
    // letter unit entry   drawn    name
    {'A', kMm,  kNeeded,   kAbove0, "Radius of the body"},
    {'B', kMm,  kNeeded,   kAbove0, "Overall length"},
    {'C', kMm,  kNeeded,   kAbove0, "Length of the front"},
    {'D', kMm,  kNeeded,   kAbove0, "Length of the cone"},
    {'E', kMm,  kNeeded,   kNever,  kStored},
    {'F', kMm,  kNeeded,   kAbove0, "Radius of the front"},
    {'G', kMm,  kNeeded,   kNever,  kStored},
    {'H', kMm,  kOptional, kNever,  kStored},
    {'I', kDeg, kNeeded,   kAbove0, "Angle of the cone"},
};

constexpr Corner kCorners[] = {
    {"0", "0"}, {"-B", "0"}, {"-B", "A"}, {"-C", "A"}, {"-C", "F"}, {"-D", "F"}, {"0", "F-D*tan I"},
};

// The second definition of p100 replaces the first.
constexpr std::string_view kLines[] = {
    "s103=h {F}", "s107=v {-D}", "p100=s103 s107", "s102=b{180-I} p100", "s104=v {-C}", "s105=h {A}",
    "s106=v {-B}", "p100=s100 s101", "k{n} p100 as100 ts106 ts105 as104 ts103 as102 as101 p100 ek",
    "del s100>107 p100",
};

constexpr Outline kOutlines[] = {{Bore::kAny, kCorners, kLines}};

constexpr Measure kMeasures[] = {
    //                 lane from                    to
    {'A', kAcross, kInside, 0, "-(B+C)*0.5", "0",  "-(B+C)*0.5", "A", 0.6},
    {'B', kAlong,  kAbove,  2, "-B",         "A",  "0",          "0"},
    {'C', kAlong,  kAbove,  1, "-C",         "A",  "0",          "0"},
    {'D', kAlong,  kAbove,  0, "-D",         "F",  "0",          "0"},
    {'F', kAcross, kInside, 0, "-(C+D)*0.5", "0",  "-(C+D)*0.5", "F"},
    {'I', kAngle,  kInside, 0, "-D",         "F",  "-I",         "0"},
};

constexpr Rule kRules[] = {{"D", "C"}, {"C", "B"}, {"I", "90"}, {"D*tan I", "F"}};

constexpr Device kDevices[] = {
    {.code = 4, .picture = 2060, .letters = kLetters, .outlines = kOutlines, .measures = kMeasures,
     .rules = kRules, .example = {4, 50, 110, 80, 22, 10, 26, 5, 5, 35}, .standIn = kThinPlate},
};
// clang-format on

}  // namespace

constinit const Kind kFaceDriver = {
    .word = "face_driver",
    .devices = kDevices,
    .own = {.code = 107, .picture = 2059, .letters = kOwnLetters},
    .ownOlder = 113,
    .ownClass = DeviceClass::kChuck,
    .clamping = Clamping::kOutside,
};

}  // namespace vanzet::devices
