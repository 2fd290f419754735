#pragma once

#include <QPointF>
#include <QSizeF>

#include "geometry/box.h"

namespace vanzet::window {

/// How the plane of the drawing lies on the screen: millimetres with y up to pixels with y down.
class ViewFrame {
 public:
  /// Shows the box with a margin; a cleared box shows the surroundings of the origin.
  void Fit(const geometry::Box& box, const QSizeF& size);
  void ZoomAt(const QPointF& place, double factor);
  void Move(const QPointF& by) { origin_ += by; }

  double scale() const { return scale_; }  ///< pixels a millimetre
  QPointF ToScreen(const geometry::Point& point) const {
    return {origin_.x() + scale_ * point.x, origin_.y() - scale_ * point.y};
  }
  geometry::Point ToPlane(const QPointF& place) const {
    return {(place.x() - origin_.x()) / scale_, (origin_.y() - place.y()) / scale_};
  }

 private:
  double scale_ = 1;
  QPointF origin_;  ///< where (0, 0) is seen
};

}  // namespace vanzet::window
