#include "window/views/view_frame.h"

#include <algorithm>

namespace vanzet::window {
namespace {

constexpr double kMargin = 0.08;              // of the size, on each side
constexpr double kUsualExtent = 200;          // millimetres that are shown of an empty drawing
constexpr double kLeast = 1e-4, kMost = 1e5;  // pixels a millimetre

}  // namespace

void ViewFrame::Fit(const geometry::Box& box, const QSizeF& size) {
  geometry::Box shown = box;
  if (shown.min.x > shown.max.x) shown = geometry::Box({0, 0}, {0, 0});
  if (std::max(shown.Width(), shown.Height()) <= 0) shown.Grow(kUsualExtent / 2);
  const double room = 1 - 2 * kMargin;
  scale_ = std::clamp(std::min(size.width() * room / std::max(shown.Width(), 1e-9),
                               size.height() * room / std::max(shown.Height(), 1e-9)),
                      kLeast, kMost);
  const geometry::Point middle = shown.Mid();
  origin_ = {size.width() / 2 - scale_ * middle.x, size.height() / 2 + scale_ * middle.y};
}

void ViewFrame::ZoomAt(const QPointF& place, double factor) {
  const double scale = std::clamp(scale_ * factor, kLeast, kMost);
  origin_ = place + (origin_ - place) * (scale / scale_);
  scale_ = scale;
}

}  // namespace vanzet::window
