#include "devices/device_contour_lines.h"

namespace vanzet {
namespace {

// A number that is defined a second time replaces the first definition: s101 of the first two jaws, p100 of
// the face driver. Blanks, repeated lines and ranges go out as they stand here.
// clang-format off
constexpr std::string_view kChuckWithBore[] = {
    "s102=h {A}", "s103=v {-abs B}", "s104=h {C}", "p100=s101 s104",
    "k{n} p100 as104 ts103 ts102 as101 p100 ek", "del s104", "del s100>103 p100",
};
constexpr std::string_view kChuck[] = {
    "s102=h {A}", "s103=v {-abs B}", "p100=s100 s101", "k{n} p100 as100 ts103 ts102 as101 p100 ek",
    "del s100>103 p100",
};
constexpr std::string_view kCollet[] = {
    "s102=h {E}", "s103=v {-C}", "s104=h {A}", "s105=v {-B}", "s106=h {D}", "p100=s106 s101",
    "k{n} p100 as106 ts105 ts104 as103 ts102 ch{F} as101 p100 ek", "del s100>106 p100",
};
constexpr std::string_view kMandrel[] = {
    "s102=h {F}", "s103=v {-C}", "s104=h {G}", "s105=v {-D}", "s106=h {H}", "s107=v {-E}", "s108=h {A}",
    "s109=v {-B}", "p100=s100 s101",
    "k{n} p100 as100 ts109 ts108 as107 ts106 ts105 ts104 as103 ts102 as101 p100 ek", "del s100>109 p100",
};
constexpr std::string_view kFaceDriver[] = {
    "s103=h {F}", "s107=v {-D}", "p100=s103 s107", "s102=b{180-I} p100", "s104=v {-C}", "s105=h {A}",
    "s106=v {-B}", "p100=s100 s101", "k{n} p100 as100 ts106 ts105 as104 ts103 as102 as101 p100 ek",
    "del s100>107 p100",
};
constexpr std::string_view kJaw1[] = {
    "s101=v {B}", "s102={E} ls100", "s103={B-D} ls101", "s104={F} ls100", "s105={B-C} ls101",
    "s106={A} ls100", "s107={B} ls101", "p100=s100 s101",
    "k{n} p100 as100 ts107 ts106 as105 ts104 as103 ts102 as101 p100 ek", "del s100>107 p100",
};
constexpr std::string_view kJaw2[] = {
    "s101=v {B}", "s102={A} ls100", "s103={B} ls101", "s104={B-C} ls101", "s105={A-F} ls100",
    "s106={B-D} ls101", "s107={A-E} ls100", "p100=s100 s103",
    "k{n} p100 ts103 ts102 as101 as107 as106 as105 as104 as100 p100 ek", "del s100>107 p100",
};
constexpr std::string_view kJaw3[] = {
    "s102={A} ls100", "s103={B} rs101", "s104={A-D} ls100", "s105={C} rs101", "p100=s100 s101",
    "k{n} p100 ts101 ts102 as103 as104 as105 as100 p100 ek", "del s100>105 p100",
};
constexpr std::string_view kJaw4[] = {
    "s102={A} ls100", "s103={C} rs101", "s104={D} ls100", "s105={B} rs101", "p100=s100 s101",
    "k{n} p100 ts101 ts102 as103 ts104 as105 as100 p100 ek", "del s100>105 p100",
};
constexpr std::string_view kJaw5[] = {
    "s102={A} ls100", "s103={B} rs101", "p100=s100 s101", "k{n} p100 ts101 ts102 as103 as100 p100 ek",
    "del s100>103 p100",
};
constexpr std::string_view kJaw6[] = {
    "s102={A} ls100", "s104={B} rs101", "s105={C} rs101", "s106={D} ls100", "p101=s102 s105",
    "p102=s104 s106", "p100=s100 s101", "s103=p101 p102", "k{n} p100 ts101 ts102 ts103 as104 as100 p100 ek",
    "del s100>106 p100>102",
};
constexpr std::string_view kJaw7[] = {
    "s102={A} ls100", "s103={C} rs101", "s104={D-F} ls100", "s105={B-E} rs101", "s106={D} ls100",
    "s107={B} rs101", "p100=s100 s101", "k{n} p100 ts101 ts102 as103 ts104 ts105 ts106 as107 as100 p100 ek",
    "del s100>107 p100",
};
constexpr std::string_view kJaw8[] = {
    "s102={A} ls100", "s103={B} rs101", "s104={A-D} ls100", "s105={B-E} rs101", "s106={A-D+F} ls100",
    "s107={C} rs101", "p100=s100 s101", "k{n} p100 ts101 ts102 as103 as104 ts105 as106 as107 as100 p100 ek",
    "del s100>107 p100",
};
constexpr std::string_view kCenter1[] = {
    "s100=h 0", "s101=v {-A}", "s102=h {F}", "s107=v 0", "s108={B}ls107", "p101=s102 s108",
    "s103=b{-E*0.5} p101", "s104={C} ls107", "s105=h {D}", "p102=s100 s107", "s106=b{-G*0.5} p102",
    "p100=s100 s101", "k{n} p100 ts101 ts102 ts103 as104 ts105 ts106 as100 p100 ek",
    "del s100>108 p100>102",
};
constexpr std::string_view kCenter2[] = {
    "s100=h 0", "s101=v {-A}", "s102=h {F}", "s107=v 0", "s108={B}ls107", "p101=s102 s108",
    "s103=b{-E*0.5} p101", "s104={C} ls107", "s105=h {D}", "p102=s100 s107", "s106=b{-G*0.5} p102",
    "p100=s100 s101", "s109=h {H}", "s110={I} rs101",
    "k{n} p100 ts101 ts109 as110 ts102 ts103 as104 ts105 ts106 as100 p100 ek", "del s100>110 p100>102",
};

constexpr DeviceContourLines kDeviceContourLines[] = {
    {  1, Bore::kAbove0,  kChuckWithBore },
    {  1, Bore::kNone,    kChuck         },
    {  2, Bore::kAny,     kCollet        },
    {  3, Bore::kAny,     kMandrel       },
    {  4, Bore::kAny,     kFaceDriver    },
    {  5, Bore::kAny,     kJaw1          },
    {  6, Bore::kAny,     kJaw2          },
    {  7, Bore::kAny,     kJaw3          },
    {  8, Bore::kAny,     kJaw4          },
    {  9, Bore::kAny,     kJaw5          },
    { 10, Bore::kAny,     kJaw6          },
    { 11, Bore::kAny,     kJaw7          },
    { 12, Bore::kAny,     kJaw8          },
    { 13, Bore::kAny,     kCenter1       },
    { 14, Bore::kAny,     kCenter2       },
};
// clang-format on

}  // namespace

std::span<const DeviceContourLines> AllDeviceContourLines() {
  return kDeviceContourLines;
}

}  // namespace vanzet
