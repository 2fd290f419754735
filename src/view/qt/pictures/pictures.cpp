#include "view/qt/pictures/pictures.h"

#include <algorithm>

namespace vanzet::view::qt {
namespace {

// clang-format off
constexpr Picture kPictures[] = {
    {2047, BezelSketch},
    {2048, BilletSketch},    {2049, BilletSketch},
    {2050, FigureSketch},
    {2051, SolidSketch},
    {2052, OwnDeviceSketch},
    {2053, DeviceSketch},    {2054, DeviceSketch},
    {2055, OwnDeviceSketch},
    {2056, DeviceSketch},
    {2057, OwnDeviceSketch},
    {2058, DeviceSketch},
    {2059, OwnDeviceSketch},
    {2060, DeviceSketch},
    {2061, OwnDeviceSketch},
    {2062, DeviceSketch},    {2063, DeviceSketch},    {2064, DeviceSketch},    {2065, DeviceSketch},
    {2066, DeviceSketch},    {2067, DeviceSketch},    {2068, DeviceSketch},    {2069, DeviceSketch},
    {2070, OwnDeviceSketch},
    {2071, DeviceSketch},
    {2114, DatumSketch},
};
// clang-format on

}  // namespace

std::span<const Picture> Pictures() {
  return kPictures;
}

Sketch SketchOf(std::int32_t bitmap, const PageValues& values) {
  const auto* const row = std::ranges::find(kPictures, bitmap, &Picture::bitmap);
  return row == std::end(kPictures) ? Sketch() : row->make(bitmap, values);
}

}  // namespace vanzet::view::qt
