#pragma once

#include <cstdint>
#include <span>

#include "view/shared/page_values.h"
#include "view/shared/sketch.h"

/// The pictures of the pages, made from the values of their controls.
namespace vanzet::view {

struct Picture {
  std::int32_t bitmap;
  Sketch (*make)(std::int32_t bitmap, const PageValues& values);
};

/// The pictures of the pages without devices, by id.
std::span<const Picture> Pictures();

/// The picture of a bitmap's id with the values of a page; an empty one for an unknown id.
Sketch SketchOf(std::int32_t bitmap, const PageValues& values);

// The families that the table is made of.
Sketch DeviceSketch(const devices::Device& device, const PageValues& values);  ///< one of the catalogue
Sketch OwnDeviceSketch(const devices::Device& device, const PageValues& values);
Sketch BilletSketch(std::int32_t bitmap, const PageValues& values);  ///< by numbers, on either spindle
Sketch FigureSketch(std::int32_t bitmap, const PageValues& values);  ///< turned from two figures
Sketch SolidSketch(std::int32_t bitmap, const PageValues& values);
Sketch BezelSketch(std::int32_t bitmap, const PageValues& values);
Sketch DatumSketch(std::int32_t bitmap, const PageValues& values);

}  // namespace vanzet::view
