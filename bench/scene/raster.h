#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

#include "modeller/export.h"
#include "scene/camera.h"

namespace vanzet::scene {

/// Samples from `left` and `top` up to, and not, `right` and `bottom`.
struct SampleRange {
  int left = 0, top = 0, right = 0, bottom = 0;

  int Width() const { return std::max(0, right - left); }
  int Height() const { return std::max(0, bottom - top); }
  std::size_t Count() const { return static_cast<std::size_t>(Width()) * static_cast<std::size_t>(Height()); }
  std::size_t Index(int x, int y) const {
    return static_cast<std::size_t>(y - top) * static_cast<std::size_t>(Width()) +
           static_cast<std::size_t>(x - left);
  }
};

/// The samples of `all` whose middles are within these coordinates.
inline SampleRange RangeOf(double left, double top, double right, double bottom, const SampleRange& all) {
  const auto clamped = [](double value, int low, int high) {
    return static_cast<int>(std::clamp(value, static_cast<double>(low), static_cast<double>(high)));
  };
  return {clamped(std::ceil(left - 0.5), all.left, all.right),
          clamped(std::ceil(top - 0.5), all.top, all.bottom),
          clamped(std::floor(right - 0.5) + 1, all.left, all.right),
          clamped(std::floor(bottom - 0.5) + 1, all.top, all.bottom)};
}

/// A colour in a picture: red, green, blue.
using ColourBytes = std::array<std::uint8_t, 3>;

inline ColourBytes BytesOf(const modeller::Colour& colour) {
  const auto part = [](double value) {
    return static_cast<std::uint8_t>(std::lround(255 * std::clamp(value, 0.0, 1.0)));
  };
  return {part(colour.red), part(colour.green), part(colour.blue)};
}

/// A horizontal band of samples with colour and nearness. Coordinates are those of samples, from the upper
/// left corner of the whole picture; a sample's place is its middle.
class Raster {
 public:
  struct Sample {
    float nearness;
    ColourBytes colour;
  };

  /// Begins a band with nothing in it; the memory of the one before is used again.
  void Begin(const SampleRange& range, const modeller::Colour& background) {
    range_ = range;
    samples_.assign(range.Count(), {kFarthest, BytesOf(background)});
  }

  const SampleRange& range() const { return range_; }
  Sample& At(int x, int y) { return samples_[range_.Index(x, y)]; }

 private:
  static constexpr float kFarthest = -1e30F;

  SampleRange range_;
  std::vector<Sample> samples_;
};

/// Samples that are tried without a look for the ends of their row.
inline constexpr int kShortRow = 4;

/// A value that changes evenly along a row of samples.
struct RowValue {
  double start, step;
  double At(int x) const { return start + step * (x + 0.5); }
};

/// The shares of the corners of a triangle at a sample.
using Shares = std::array<double, 3>;

/// Where the samples of a row that can be covered begin and end.
struct RowEnds {
  double from, to;
};

/// The ends of the row in the box, at most a sample outside of where no share is negative.
inline RowEnds EndsOf(const std::array<RowValue, 3>& shares, const SampleRange& box) {
  RowEnds ends = {static_cast<double>(box.left), static_cast<double>(box.right)};
  for (const RowValue& w : shares) {
    if (box.Width() <= kShortRow && w.step != 0) continue;
    const double zero = w.step == 0 ? 0 : -w.start / w.step;
    if (w.step > 0) ends.from = std::max(ends.from, zero - 1);
    if (w.step < 0) ends.to = std::min(ends.to, zero + 1);
    if (w.step == 0 && w.start < 0) ends.to = ends.from;
  }
  return ends;
}

/// Calls `cover(x, y, shares)` for each sample in the range that a triangle covers.
template <class Cover>
void CoverTriangle(const std::array<PicturePoint, 3>& corners, const SampleRange& within, Cover cover) {
  const auto& [a, b, c] = corners;
  const SampleRange box = RangeOf(std::min({a.x, b.x, c.x}), std::min({a.y, b.y, c.y}),
                                  std::max({a.x, b.x, c.x}), std::max({a.y, b.y, c.y}), within);
  if (box.Width() == 0 || box.Height() == 0) return;
  const double area = (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
  if (area == 0) return;
  // The share of a corner at a sample: the distance from the opposite edge.
  const auto share = [&](const PicturePoint& p, const PicturePoint& q, int y) {
    return RowValue{((q.x - p.x) * (y + 0.5 - p.y) + (q.y - p.y) * p.x) / area, -(q.y - p.y) / area};
  };
  for (int y = box.top; y < box.bottom; ++y) {
    const RowValue wa = share(b, c, y), wb = share(c, a, y);
    const RowValue wc = {1 - wa.start - wb.start, -wa.step - wb.step};
    const RowEnds ends = EndsOf({wa, wb, wc}, box);
    // The edges of a sliver can meet far outside of the picture.
    if (!(ends.from < ends.to)) continue;
    for (int x = static_cast<int>(ends.from); x < ends.to; ++x) {
      const Shares shares = {wa.At(x), wb.At(x), wc.At(x)};
      if (shares[0] >= 0 && shares[1] >= 0 && shares[2] >= 0) cover(x, y, shares);
    }
  }
}

/// Calls `cover(x, y, nearness)` for each sample in the range that a line with round ends covers.
template <class Cover>
void CoverLine(const PicturePoint& from, const PicturePoint& to, double width, const SampleRange& within,
               Cover cover) {
  const double radius = width / 2;
  const double dx = to.x - from.x, dy = to.y - from.y, square = dx * dx + dy * dy;
  const SampleRange box = RangeOf(std::min(from.x, to.x) - radius, std::min(from.y, to.y) - radius,
                                  std::max(from.x, to.x) + radius, std::max(from.y, to.y) + radius, within);
  // The reach of a row to either side of the line.
  const double aside = dy == 0 ? 1e9 : radius * std::sqrt(square) / std::fabs(dy) + 2;
  for (int y = box.top; y < box.bottom; ++y) {
    const double middle = dy == 0 ? from.x : from.x + dx * (y + 0.5 - from.y) / dy;
    const double last = std::min<double>(box.right, middle + aside);
    const double first = std::max<double>(box.left, middle - aside);
    if (!(first < last)) continue;
    for (int x = static_cast<int>(first); x < last; ++x) {
      const double px = x + 0.5 - from.x, py = y + 0.5 - from.y;
      const double along = square > 0 ? std::clamp((px * dx + py * dy) / square, 0.0, 1.0) : 0.0;
      const double ex = px - along * dx, ey = py - along * dy;
      if (ex * ex + ey * ey > radius * radius) continue;
      cover(x, y, from.nearness + along * (to.nearness - from.nearness));
    }
  }
}

}  // namespace vanzet::scene
