#include "view/qt/pictures/pictures.h"

#include <algorithm>

#include "view/ids.h"

namespace vanzet::view::qt {
namespace {

// clang-format off
constexpr Picture kPictures[] = {
    {picture::kBezel,         BezelSketch},
    {picture::kBilletMain,    BilletSketch},
    {picture::kBilletSub,     BilletSketch},
    {picture::kFigure,        FigureSketch},
    {picture::kSolid,         SolidSketch},
    {picture::kOwnCenter,     OwnDeviceSketch},
    {picture::kCenter1,       DeviceSketch},
    {picture::kCenter2,       DeviceSketch},
    {picture::kOwnChuck,      OwnDeviceSketch},
    {picture::kChuck,         DeviceSketch},
    {picture::kOwnCollet,     OwnDeviceSketch},
    {picture::kCollet,        DeviceSketch},
    {picture::kOwnFaceDriver, OwnDeviceSketch},
    {picture::kFaceDriver,    DeviceSketch},
    {picture::kOwnJaw,        OwnDeviceSketch},
    {picture::kJaw1,          DeviceSketch},
    {picture::kJaw2,          DeviceSketch},
    {picture::kJaw3,          DeviceSketch},
    {picture::kJaw4,          DeviceSketch},
    {picture::kJaw5,          DeviceSketch},
    {picture::kJaw6,          DeviceSketch},
    {picture::kJaw7,          DeviceSketch},
    {picture::kJaw8,          DeviceSketch},
    {picture::kOwnMandrel,    OwnDeviceSketch},
    {picture::kMandrel,       DeviceSketch},
    {picture::kDatum,         DatumSketch},
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
