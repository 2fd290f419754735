#pragma once

#include <QPolygonF>
#include <QRectF>
#include <vector>

#include "geometry/kurve.h"
#include "window/views/view_frame.h"

/// Contours as chords on the screen. Chords are nowhere farther from an arc than a fraction of a pixel at any
/// scale, and nothing is drawn far outside of what is seen, where coordinates would lose their digits.
namespace vanzet::window {

QPolygonF ChordsOf(const geometry::Kurve& curve, const ViewFrame& frame);

/// The pieces of a chain of lines that pass through a rectangle.
std::vector<QPolygonF> Within(const QPolygonF& chain, const QRectF& seen);

/// The part of an area that lies in a rectangle.
QPolygonF AreaWithin(const QPolygonF& area, const QRectF& seen);

}  // namespace vanzet::window
