#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

#include "modeller/export.h"
#include "scene/camera.h"

namespace vanzet::scene {

/// A corner of a triangle in the picture, with what varies over it.
struct RasterCorner {
  PicturePoint at;
  geometry::Vector3d normal;
};

/// A horizontal band of samples with colour and nearness. Coordinates are those of samples, from the upper
/// left corner of the whole picture; a sample's place is its middle.
class Raster {
 public:
  Raster(int width, int top, int height, const modeller::Colour& background);

  struct Sample {
    double nearness;
    std::array<float, 3> colour;
  };

  /// Called for a sample within the band that a shape covers.
  using Cover = std::function<void(Sample& sample, int x, int y, double nearness)>;
  using CoverLit =
      std::function<void(Sample& sample, int x, int y, double nearness, const geometry::Vector3d& normal)>;

  void Triangle(const std::array<RasterCorner, 3>& corners, const CoverLit& cover);

  /// A line with round ends.
  void Line(const PicturePoint& from, const PicturePoint& to, double width, const Cover& cover);

  int Width() const { return width_; }
  int Top() const { return top_; }
  int Height() const { return height_; }
  Sample& At(int x, int y) { return samples_[Index(x, y)]; }
  std::size_t Index(int x, int y) const {
    return static_cast<std::size_t>(y - top_) * static_cast<std::size_t>(width_) +
           static_cast<std::size_t>(x);
  }

 private:
  struct Range {
    int from, to;
  };
  Range Columns(double low, double high) const;
  Range Rows(double low, double high) const;

  int width_, top_, height_;
  std::vector<Sample> samples_;
};

}  // namespace vanzet::scene
