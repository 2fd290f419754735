#include "view/qt/pictures/device_measures.h"

#include <algorithm>

namespace vanzet::view::qt {
namespace {

using enum Where;
constexpr auto kAlong = Measure::Kind::kAlong;
constexpr auto kAcross = Measure::Kind::kAcross;
constexpr auto kAngle = Measure::Kind::kAngle;
constexpr auto kCorner = Measure::Kind::kCorner;

// Radii stand within the step that they belong to, lengths above, from the face on.
// clang-format off
constexpr DeviceMeasure kMeasures[] = {
    {  1, 'A', kAcross, kInside, 0, "-abs B*0.35", "0",   "-abs B*0.35", "A"   },
    {  1, 'B', kAlong,  kAbove,  0, "-abs B",      "A",   "0",           "A"   },
    {  1, 'C', kAcross, kInside, 0, "-abs B*0.7",  "0",   "-abs B*0.7",  "C"   },

    {  2, 'A', kAcross, kInside, 0, "-C-(B-C)*0.35", "0", "-C-(B-C)*0.35", "A", 0.7 },
    {  2, 'B', kAlong,  kAbove,  1, "-B",          "A",   "0",           "E"   },
    {  2, 'C', kAlong,  kAbove,  0, "-C",          "E",   "0",           "E"   },
    {  2, 'D', kAcross, kInside, 0, "-C-(B-C)*0.75", "0", "-C-(B-C)*0.75", "D" },
    {  2, 'E', kAcross, kInside, 0, "-C*0.5",      "0",   "-C*0.5",      "E"   },
    {  2, 'F', kCorner, kRight,  0, "0",           "E",   "0",           "E"   },

    {  3, 'A', kAcross, kInside, 0, "-(B+E)*0.5",  "0",   "-(B+E)*0.5",  "A", 0.6 },
    {  3, 'B', kAlong,  kAbove,  3, "-B",          "A",   "0",           "F"   },
    {  3, 'C', kAlong,  kAbove,  0, "-C",          "G",   "0",           "F"   },
    {  3, 'D', kAlong,  kAbove,  1, "-D",          "H",   "0",           "F"   },
    {  3, 'E', kAlong,  kAbove,  2, "-E",          "A",   "0",           "F"   },
    {  3, 'F', kAcross, kInside, 0, "-C*0.5",      "0",   "-C*0.5",      "F"   },
    {  3, 'G', kAcross, kInside, 0, "-(C+D)*0.5",  "0",   "-(C+D)*0.5",  "G", 0.55 },
    {  3, 'H', kAcross, kInside, 0, "-(D+E)*0.5",  "0",   "-(D+E)*0.5",  "H", 0.75 },

    {  4, 'A', kAcross, kInside, 0, "-(B+C)*0.5",  "0",   "-(B+C)*0.5",  "A", 0.6 },
    {  4, 'B', kAlong,  kAbove,  2, "-B",          "A",   "0",           "0"   },
    {  4, 'C', kAlong,  kAbove,  1, "-C",          "A",   "0",           "0"   },
    {  4, 'D', kAlong,  kAbove,  0, "-D",          "F",   "0",           "0"   },
    {  4, 'F', kAcross, kInside, 0, "-(C+D)*0.5",  "0",   "-(C+D)*0.5",  "F"   },
    {  4, 'I', kAngle,  kInside, 0, "-D",          "F",   "-I",          "0"   },

    {  5, 'A', kAcross, kLeft,   0, "0",           "0",   "0",           "A"   },
    {  5, 'B', kAlong,  kBelow,  0, "0",           "0",   "B",           "0"   },
    {  5, 'C', kAlong,  kAbove,  0, "0",           "A",   "C",           "A"   },
    {  5, 'D', kAlong,  kAbove,  1, "0",           "A",   "D",           "F"   },
    {  5, 'E', kAcross, kInside, 0, "(D+B)*0.5",   "0",   "(D+B)*0.5",   "E"   },
    {  5, 'F', kAcross, kInside, 0, "(C+D)*0.5",   "0",   "(C+D)*0.5",   "F"   },

    {  6, 'A', kAcross, kLeft,   0, "0",           "0",   "0",           "A"   },
    {  6, 'B', kAlong,  kAbove,  0, "0",           "A",   "B",           "A"   },
    {  6, 'C', kAlong,  kBelow,  0, "0",           "0",   "C",           "0"   },
    {  6, 'D', kAlong,  kBelow,  1, "0",           "0",   "D",           "A-F" },
    {  6, 'E', kAcross, kInside, 0, "(D+B)*0.5",   "A-E", "(D+B)*0.5",   "A"   },
    {  6, 'F', kAcross, kInside, 0, "(C+D)*0.5",   "A-F", "(C+D)*0.5",   "A"   },

    {  7, 'A', kAcross, kLeft,   0, "0",           "0",   "0",           "A"   },
    {  7, 'B', kAlong,  kAbove,  0, "0",           "A",   "B",           "A"   },
    {  7, 'C', kAlong,  kBelow,  0, "0",           "0",   "C",           "0"   },
    {  7, 'D', kAcross, kRight,  0, "B",           "A-D", "B",           "A"   },

    {  8, 'A', kAcross, kLeft,   0, "0",           "0",   "0",           "A"   },
    {  8, 'B', kAlong,  kBelow,  0, "0",           "0",   "B",           "0"   },
    {  8, 'C', kAlong,  kAbove,  0, "0",           "A",   "C",           "A"   },
    {  8, 'D', kAcross, kRight,  0, "B",           "0",   "B",           "D"   },

    {  9, 'A', kAcross, kLeft,   0, "0",           "0",   "0",           "A"   },
    {  9, 'B', kAlong,  kBelow,  0, "0",           "0",   "B",           "0"   },

    { 10, 'A', kAcross, kLeft,   0, "0",           "0",   "0",           "A"   },
    { 10, 'B', kAlong,  kBelow,  0, "0",           "0",   "B",           "0"   },
    { 10, 'C', kAlong,  kAbove,  0, "0",           "A",   "C",           "A"   },
    { 10, 'D', kAcross, kRight,  0, "B",           "0",   "B",           "D"   },

    { 11, 'A', kAcross, kLeft,   0, "0",           "0",   "0",           "A"   },
    { 11, 'B', kAlong,  kBelow,  0, "0",           "0",   "B",           "0"   },
    { 11, 'C', kAlong,  kAbove,  0, "0",           "A",   "C",           "A"   },
    { 11, 'D', kAcross, kRight,  0, "B",           "0",   "B",           "D"   },
    { 11, 'E', kAlong,  kAbove,  0, "B-E",         "D",   "B",           "D"   },
    { 11, 'F', kAcross, kInside, 0, "(C+B-E)*0.5", "D-F", "(C+B-E)*0.5", "D"   },

    { 12, 'A', kAcross, kLeft,   0, "0",           "0",   "0",           "A"   },
    { 12, 'B', kAlong,  kAbove,  0, "0",           "A",   "B",           "A"   },
    { 12, 'C', kAlong,  kBelow,  0, "0",           "0",   "C",           "0"   },
    { 12, 'D', kAcross, kRight,  0, "B",           "A-D", "B",           "A"   },
    { 12, 'E', kAlong,  kBelow,  0, "B-E",         "A-D", "B",           "A-D" },
    { 12, 'F', kAcross, kInside, 0, "(C+B-E)*0.5", "A-D", "(C+B-E)*0.5", "A-D+F" },

    { 13, 'A', kAlong,  kAbove,  2, "-A",          "F",   "0",           "0"   },
    { 13, 'B', kAlong,  kAbove,  1, "-B",          "F",   "0",           "0"   },
    { 13, 'C', kAlong,  kAbove,  0, "-C",          "D",   "0",           "0"   },
    { 13, 'D', kAcross, kInside, 0, "-C*0.85",     "0",   "-C*0.85",     "D", 0.6 },
    { 13, 'E', kAngle,  kInside, 0, "-B",          "F",   "-E*0.5",      "0"   },
    { 13, 'F', kAcross, kInside, 0, "-(A+B)*0.5",  "0",   "-(A+B)*0.5",  "F"   },
    { 13, 'G', kAngle,  kInside, 0, "0",           "0",   "180-G*0.5",   "180+G*0.5" },

    { 14, 'A', kAlong,  kAbove,  2, "-A",          "H",   "0",           "0"   },
    { 14, 'B', kAlong,  kAbove,  1, "-B",          "F",   "0",           "0"   },
    { 14, 'C', kAlong,  kAbove,  0, "-C",          "D",   "0",           "0"   },
    { 14, 'D', kAcross, kInside, 0, "-C*0.85",     "0",   "-C*0.85",     "D", 0.6 },
    { 14, 'E', kAngle,  kInside, 0, "-B",          "F",   "-E*0.5",      "0"   },
    { 14, 'F', kAcross, kInside, 0, "-(A-I+B)*0.5", "0",  "-(A-I+B)*0.5", "F"  },
    { 14, 'G', kAngle,  kInside, 0, "0",           "0",   "180-G*0.5",   "180+G*0.5" },
    { 14, 'H', kAcross, kInside, 0, "-A+I*0.5",    "0",   "-A+I*0.5",    "H", 0.7 },
    { 14, 'I', kAlong,  kBelow,  0, "-A",          "-H",  "-A+I",        "-H"  },
};

constexpr DeviceRule kRules[] = {
    {  1, "0", "A"   }, {  1, "C", "A"   },
    {  2, "D", "A"   }, {  2, "D", "E"   }, {  2, "C", "B"   }, {  2, "F", "E-D" }, {  2, "F", "C" },
    {  3, "C", "D"   }, {  3, "D", "E"   }, {  3, "E", "B"   },
    {  4, "D", "C"   }, {  4, "C", "B"   }, {  4, "I", "90"  }, {  4, "D*tan I", "F" },
    {  5, "C", "D"   }, {  5, "D", "B"   },
    {  6, "C", "D"   }, {  6, "D", "B"   }, {  6, "E", "A"   }, {  6, "F", "A"   },
    {  7, "C", "B"   }, {  7, "D", "A"   },
    {  8, "C", "B"   },
    { 11, "C", "B-E" }, { 11, "F", "D"   },
    { 12, "C", "B-E" }, { 12, "D", "A"   }, { 12, "F", "D"   },
    { 13, "C", "B"   }, { 13, "B", "A"   }, { 13, "E", "180" }, { 13, "G", "180" },
    { 13, "D", "C*tan(G*0.5)" }, { 13, "D", "F-(B-C)*tan(E*0.5)" },
    { 14, "C", "B"   }, { 14, "B", "A-I" }, { 14, "E", "180" }, { 14, "G", "180" },
    { 14, "D", "C*tan(G*0.5)" }, { 14, "D", "F-(B-C)*tan(E*0.5)" },
};

constexpr DeviceParams kExamples[] = {
    //  type   A    B    C    D    E    F    G    H    I
    {  1,     80,  90,  25 },
    {  2,     30,  80,  18,  16,  42,   4 },
    {  3,     46, 100,  36,  52,  70,  14,  24,  36 },
    {  4,     50, 110,  80,  22,  10,  26,   5,   5,  35 },
    {  5,     50,  76,  22,  48,  17,  33,  14,  28 },
    {  6,     50,  76,  26,  52,  16,  32,  14,  28 },
    {  7,     46,  70,  40,  16,  12,  25 },
    {  8,     46,  70,  34,  20,  12,  25 },
    {  9,     46,  70,  12,  25 },
    { 10,     46,  70,  34,  20,  25 },
    { 11,     50,  84,  26,  38,  20,  18,  14,  28 },
    { 12,     50,  84,  30,  34,  20,  16,  14,  28 },
    { 13,    120,  70,  45,  16,  60,  34,  60 },
    { 14,    120,  70,  45,  16,  60,  32,  60,  46,  18 },
};
// clang-format on

}  // namespace

std::span<const DeviceMeasure> DeviceMeasures() {
  return kMeasures;
}

std::span<const DeviceRule> DeviceRules() {
  return kRules;
}

DeviceParams ExampleOf(std::int32_t type) {
  const auto* const row = std::ranges::find(kExamples, type, &DeviceParams::type);
  return row == std::end(kExamples) ? DeviceParams() : *row;
}

}  // namespace vanzet::view::qt
