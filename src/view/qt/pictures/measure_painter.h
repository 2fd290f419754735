#pragma once

#include <QRectF>
#include <QTransform>
#include <vector>

#include "view/qt/pictures/sketch_painter.h"

namespace vanzet::view::qt {

/// The placement of a sketch on screen.
struct Place {
  QTransform transform;  ///< to the screen
  QRectF bounds;         ///< of its shapes, on the screen
  double lane;           ///< the width of a lane of measures
  QRectF room;           ///< that no letter leaves
};

/// Draws the measures of a sketch: lines with arrows, and the letter of each. The one whose edit has the
/// focus is emphasised with its value, those at fault are in the colour of faults. Letters that would
/// cover each other are beside their measure. Returns where the letters are.
std::vector<QRectF> PaintMeasures(QPainter& painter, const Sketch& sketch, const Place& place,
                                  const Drawing& drawing);

}  // namespace vanzet::view::qt
