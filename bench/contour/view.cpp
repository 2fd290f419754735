#include "contour/view.h"

#include <algorithm>

#include "base/number_text.h"

namespace vanzet::contour {
namespace {

using geometry::Point;

/// In pixels; the margin has room for arrows, labels and marks at the edge.
constexpr double kMargin = 36, kLargestWidth = 640, kLargestHeight = 460, kSmallestWidth = 160;

/// Of a drawing that is a single point, in millimetres.
constexpr double kSmallestExtent = 1e-3;
constexpr int kDigits = 12;

geometry::Box BoxOf(const Drawing& drawing) {
  geometry::Box box;
  for (const Drawing::Layer& layer : drawing.layers) {
    for (const Contour& contour : *layer.contours) box.Insert(contour.curve.Box());
  }
  for (const Drawing::Mark& mark : drawing.marks) box.Insert(mark.point);
  return box;
}

}  // namespace

View::View(const Drawing& drawing) : box_(BoxOf(drawing)) {
  const double width = std::max(box_.Width(), kSmallestExtent);
  const double height = std::max(box_.Height(), kSmallestExtent);
  scale_ = std::min(kLargestWidth / width, kLargestHeight / height);
  width_ = std::max(scale_ * width, kSmallestWidth) + 2 * kMargin;
  height_ = scale_ * height + 2 * kMargin;
}

Point View::ToScreen(const Point& point) const {
  const Point middle = box_.Mid();
  return {width_ / 2 + scale_ * (point.x - middle.x), height_ / 2 - scale_ * (point.y - middle.y)};
}

std::string View::Transform() const {
  const Point origin = ToScreen({0, 0});
  const std::string scale = NumberText(scale_, kDigits);
  return "matrix(" + scale + " 0 0 -" + scale + " " + NumberText(origin.x, kDigits) + " " +
         NumberText(origin.y, kDigits) + ")";
}

Point View::low() const {
  const Point middle = box_.Mid();
  return {middle.x - width_ / scale_ / 2, middle.y - height_ / scale_ / 2};
}

Point View::high() const {
  const Point middle = box_.Mid();
  return {middle.x + width_ / scale_ / 2, middle.y + height_ / scale_ / 2};
}

}  // namespace vanzet::contour
