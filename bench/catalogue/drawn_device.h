#pragma once

#include <string>
#include <vector>

#include "devices/device_params.h"
#include "devices/outline.h"

namespace vanzet::catalogue {

/// An area of a picture, in pixels; y points down.
struct Frame {
  double x, y, width, height;
};

/// A device in a picture: its shapes fitted into a frame, and its dimensions around them.
///
/// Requires: the values make a solid, or at least an outline
class DrawnDevice {
 public:
  /// `lane` is the width of a lane of dimensions; 0: the device is drawn without dimensions.
  DrawnDevice(const DeviceParams& params, const Frame& frame, double lane);

  /// The shapes, and the dimensions where there is room for them.
  std::string Svg() const;

 private:
  OutlineVertex OnPaper(double x, double y) const;
  std::string PathOf(double sign, const char* style) const;
  std::string Axis() const;
  void FitInto(const Frame& frame);

  DeviceParams params_;
  std::vector<OutlineVertex> outline_;
  bool isSpun_;
  double lane_;
  double scale_ = 1, left_ = 0, top_ = 0;  ///< the place of the least x and the greatest y
  double minX_ = 0, maxX_ = 0, minY_ = 0, maxY_ = 0;
};

}  // namespace vanzet::catalogue
