#include "devices/device_outlines.h"

#include <cmath>

#include "devices/formula.h"

namespace vanzet {
namespace {

// clang-format off
constexpr OutlineCorner kChuckWithBore[] = {{"0", "C"}, {"-abs B", "C"}, {"-abs B", "A"}, {"0", "A"}};
constexpr OutlineCorner kChuck[]         = {{"0", "0"}, {"-abs B", "0"}, {"-abs B", "A"}, {"0", "A"}};
constexpr OutlineCorner kCollet[] = {{"0", "D"}, {"-B", "D"}, {"-B", "A"}, {"-C", "A"}, {"-C", "E"}, {"0", "E", "F"}};
constexpr OutlineCorner kMandrel[] = {
    {"0", "0"}, {"-B", "0"}, {"-B", "A"}, {"-E", "A"}, {"-E", "H"}, {"-D", "H"}, {"-D", "G"}, {"-C", "G"}, {"-C", "F"}, {"0", "F"}};
constexpr OutlineCorner kFaceDriver[] = {
    {"0", "0"}, {"-B", "0"}, {"-B", "A"}, {"-C", "A"}, {"-C", "F"}, {"-D", "F"}, {"0", "F-D*tan I"}};
constexpr OutlineCorner kJaw1[] = {
    {"B", "0"}, {"0", "0"}, {"0", "A"}, {"C", "A"}, {"C", "F"}, {"D", "F"}, {"D", "E"}, {"B", "E"}};
constexpr OutlineCorner kJaw2[] = {
    {"0", "0"}, {"0", "A"}, {"B", "A"}, {"B", "A-E"}, {"D", "A-E"}, {"D", "A-F"}, {"C", "A-F"}, {"C", "0"}};
constexpr OutlineCorner kJaw3[] = {{"0", "0"}, {"0", "A"}, {"B", "A"}, {"B", "A-D"}, {"C", "A-D"}, {"C", "0"}};
constexpr OutlineCorner kJaw4[] = {{"0", "0"}, {"0", "A"}, {"C", "A"}, {"C", "D"}, {"B", "D"}, {"B", "0"}};
constexpr OutlineCorner kJaw5[] = {{"0", "0"}, {"0", "A"}, {"B", "A"}, {"B", "0"}};
constexpr OutlineCorner kJaw6[] = {{"0", "0"}, {"0", "A"}, {"C", "A"}, {"B", "D"}, {"B", "0"}};
constexpr OutlineCorner kJaw7[] = {
    {"0", "0"}, {"0", "A"}, {"C", "A"}, {"C", "D-F"}, {"B-E", "D-F"}, {"B-E", "D"}, {"B", "D"}, {"B", "0"}};
constexpr OutlineCorner kJaw8[] = {
    {"0", "0"}, {"0", "A"}, {"B", "A"}, {"B", "A-D"}, {"B-E", "A-D"}, {"B-E", "A-D+F"}, {"C", "A-D+F"}, {"C", "0"}};
// The point of a center is where the cone of the angle G meets the axis; the cone of the angle E leads from
// its collar at x = -B to the shaft at x = -C.
constexpr OutlineCorner kCenter1[] = {
    {"-A", "0"}, {"-A", "F"}, {"-B", "F"}, {"-C", "F+(B-C)*tan(-E*0.5)"}, {"-C", "D"}, {"D/tan(-G*0.5)", "D"}, {"0", "0"}};
constexpr OutlineCorner kCenter2[] = {
    {"-A", "0"}, {"-A", "H"}, {"-A+I", "H"}, {"-A+I", "F"}, {"-B", "F"}, {"-C", "F+(B-C)*tan(-E*0.5)"}, {"-C", "D"},
    {"D/tan(-G*0.5)", "D"}, {"0", "0"}};

constexpr DeviceOutline kDeviceOutlines[] = {
    {  1, Bore::kAbove0, kChuckWithBore },
    {  1, Bore::kNone,   kChuck         },
    {  2, Bore::kAny,    kCollet        },
    {  3, Bore::kAny,    kMandrel       },
    {  4, Bore::kAny,    kFaceDriver    },
    {  5, Bore::kAny,    kJaw1          },
    {  6, Bore::kAny,    kJaw2          },
    {  7, Bore::kAny,    kJaw3          },
    {  8, Bore::kAny,    kJaw4          },
    {  9, Bore::kAny,    kJaw5          },
    { 10, Bore::kAny,    kJaw6          },
    { 11, Bore::kAny,    kJaw7          },
    { 12, Bore::kAny,    kJaw8          },
    { 13, Bore::kAny,    kCenter1       },
    { 14, Bore::kAny,    kCenter2       },
};
// clang-format on

/// The point on the way from `corner` to `towards` at the distance `leg`.
OutlineVertex Along(OutlineVertex corner, OutlineVertex towards, double leg) {
  const double part = leg / std::hypot(towards.x - corner.x, towards.y - corner.y);
  return {corner.x + (towards.x - corner.x) * part, corner.y + (towards.y - corner.y) * part};
}

bool Fits(OutlineVertex corner, OutlineVertex neighbour, double leg) {
  return leg > 0 && leg <= std::hypot(neighbour.x - corner.x, neighbour.y - corner.y);
}

/// The vertices of one row, chamfers cut.
std::vector<OutlineVertex> Expand(std::span<const OutlineCorner> corners, const DeviceParams& params) {
  std::vector<OutlineVertex> sharp;
  for (const OutlineCorner& corner : corners) {
    sharp.push_back({Evaluate(corner.x, params), Evaluate(corner.y, params)});
  }
  std::vector<OutlineVertex> outline;
  for (std::size_t i = 0; i < sharp.size(); ++i) {
    const OutlineVertex& before = sharp[(i + sharp.size() - 1) % sharp.size()];
    const OutlineVertex& after = sharp[(i + 1) % sharp.size()];
    const double leg = corners[i].chamfer.empty() ? 0 : Evaluate(corners[i].chamfer, params);
    if (Fits(sharp[i], before, leg) && Fits(sharp[i], after, leg)) {
      outline.push_back(Along(sharp[i], before, leg));
      outline.push_back(Along(sharp[i], after, leg));
    } else {
      outline.push_back(sharp[i]);
    }
  }
  return outline;
}

}  // namespace

std::span<const DeviceOutline> DeviceOutlines() {
  return kDeviceOutlines;
}

std::vector<OutlineVertex> OutlineOf(const DeviceParams& params) {
  for (const DeviceOutline& row : kDeviceOutlines) {
    if (row.type == params.type && Holds(row.bore, params)) return Expand(row.corners, params);
  }
  return {};
}

}  // namespace vanzet
