#pragma once

#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <QSizeF>
#include <vector>

#include "geometry/box.h"
#include "geometry/kurve.h"

namespace vanzet::window {

/// Maps the plane of the drawing, in millimetres with y up, to the screen, in pixels with y down.
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
  QPointF origin_;  ///< the place of (0, 0)
};

// Contours as chords on the screen. Chords are nowhere farther from an arc than a fraction of a pixel at any
// scale, and nothing is drawn far outside of the view, where coordinates would lose their digits.

QPolygonF ChordsOf(const geometry::Kurve& curve, const ViewFrame& frame);

/// The pieces of a chain of lines that pass through a rectangle.
std::vector<QPolygonF> ClipChain(const QPolygonF& chain, const QRectF& rectangle);

/// The part of an area within a rectangle.
QPolygonF ClipArea(const QPolygonF& area, const QRectF& rectangle);

}  // namespace vanzet::window
