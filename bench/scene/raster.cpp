#include "scene/raster.h"

namespace vanzet::scene {
namespace {

constexpr double kFarthest = -1e30;

int Clamped(double value, int low, int high) {
  return static_cast<int>(std::clamp(value, static_cast<double>(low), static_cast<double>(high)));
}

}  // namespace

SampleRange RangeOf(double left, double top, double right, double bottom, const SampleRange& all) {
  return {Clamped(std::floor(left), all.left, all.right), Clamped(std::floor(top), all.top, all.bottom),
          Clamped(std::ceil(right) + 1, all.left, all.right),
          Clamped(std::ceil(bottom) + 1, all.top, all.bottom)};
}

Raster::Raster(int width, int top, int height, const modeller::Colour& background)
    : range_{0, top, width, top + height} {
  const Sample empty{kFarthest,
                     {static_cast<float>(background.red), static_cast<float>(background.green),
                      static_cast<float>(background.blue)}};
  samples_.assign(range_.Count(), empty);
}

}  // namespace vanzet::scene
