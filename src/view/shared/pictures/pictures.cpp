#include "view/shared/pictures/pictures.h"

#include <algorithm>

#include "devices/kinds.h"
#include "view/ids.h"

namespace vanzet::view {
namespace {

// clang-format off
constexpr Picture kPictures[] = {
    {picture::kBezel,         BezelSketch},
    {picture::kBilletMain,    BilletSketch},
    {picture::kBilletSub,     BilletSketch},
    {picture::kFigure,        FigureSketch},
    {picture::kSolid,         SolidSketch},
    {picture::kDatum,         DatumSketch},
};
// clang-format on

}  // namespace

std::span<const Picture> Pictures() {
  return kPictures;
}

Sketch SketchOf(std::int32_t bitmap, const PageValues& values) {
  if (const devices::Device* const device = devices::FindByPicture(bitmap)) {
    return devices::IsOwn(device->code) ? OwnDeviceSketch(*device, values) : DeviceSketch(*device, values);
  }
  const auto* const row = std::ranges::find(kPictures, bitmap, &Picture::bitmap);
  return row == std::end(kPictures) ? Sketch() : row->make(bitmap, values);
}

}  // namespace vanzet::view
