#include "scene/raster.h"

#include <algorithm>
#include <cmath>

namespace vanzet::scene {
namespace {

constexpr double kFarthest = -1e30;

int Clamped(double value, int low, int high) {
  return static_cast<int>(std::clamp(value, static_cast<double>(low), static_cast<double>(high)));
}

/// Twice the area between an edge and a point; its sign tells the side.
double Side(const PicturePoint& a, const PicturePoint& b, double x, double y) {
  return (b.x - a.x) * (y - a.y) - (b.y - a.y) * (x - a.x);
}

}  // namespace

Raster::Raster(int width, int top, int height, const modeller::Colour& background)
    : width_(width), top_(top), height_(height) {
  const Sample empty{kFarthest,
                     {static_cast<float>(background.red), static_cast<float>(background.green),
                      static_cast<float>(background.blue)}};
  samples_.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), empty);
}

/// The samples whose middles may lie between two places.
Raster::Range Raster::Columns(double low, double high) const {
  return {Clamped(std::floor(low), 0, width_), Clamped(std::ceil(high) + 1, 0, width_)};
}

Raster::Range Raster::Rows(double low, double high) const {
  return {Clamped(std::floor(low), top_, top_ + height_), Clamped(std::ceil(high) + 1, top_, top_ + height_)};
}

void Raster::Triangle(const std::array<RasterCorner, 3>& corners, const CoverLit& cover) {
  const PicturePoint &a = corners[0].at, &b = corners[1].at, &c = corners[2].at;
  const double area = Side(a, b, c.x, c.y);
  if (area == 0) return;
  const Range columns = Columns(std::min({a.x, b.x, c.x}), std::max({a.x, b.x, c.x}));
  const Range rows = Rows(std::min({a.y, b.y, c.y}), std::max({a.y, b.y, c.y}));
  for (int y = rows.from; y < rows.to; ++y) {
    for (int x = columns.from; x < columns.to; ++x) {
      const double wa = Side(b, c, x + 0.5, y + 0.5) / area;
      const double wb = Side(c, a, x + 0.5, y + 0.5) / area;
      const double wc = 1 - wa - wb;
      if (wa < 0 || wb < 0 || wc < 0) continue;
      cover(At(x, y), x, y, wa * a.nearness + wb * b.nearness + wc * c.nearness,
            corners[0].normal * wa + corners[1].normal * wb + corners[2].normal * wc);
    }
  }
}

void Raster::Line(const PicturePoint& from, const PicturePoint& to, double width, const Cover& cover) {
  const double radius = width / 2;
  const double dx = to.x - from.x, dy = to.y - from.y, square = dx * dx + dy * dy;
  const Range rows = Rows(std::min(from.y, to.y) - radius, std::max(from.y, to.y) + radius);
  const Range columns = Columns(std::min(from.x, to.x) - radius, std::max(from.x, to.x) + radius);
  for (int y = rows.from; y < rows.to; ++y) {
    for (int x = columns.from; x < columns.to; ++x) {
      const double px = x + 0.5 - from.x, py = y + 0.5 - from.y;
      const double along = square > 0 ? std::clamp((px * dx + py * dy) / square, 0.0, 1.0) : 0.0;
      if (std::hypot(px - along * dx, py - along * dy) > radius) continue;
      cover(At(x, y), x, y, from.nearness + along * (to.nearness - from.nearness));
    }
  }
}

}  // namespace vanzet::scene
