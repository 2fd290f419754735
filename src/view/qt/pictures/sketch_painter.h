#pragma once

#include <QFont>
#include <QPalette>
#include <QRectF>
#include <cstdint>
#include <vector>

#include "view/qt/pictures/sketch.h"

class QPainter;

namespace vanzet::view::qt {

/// The style of a sketch on screen, and the value to emphasise.
struct Drawing {
  QPalette palette;
  QFont font;
  std::int32_t focused = 0;  ///< the edit that has the focus
  QString value = {};        ///< the text of that edit
};

/// Draws the sketch as large as it fits into `area`, with its measures around it and its lines of text below.
/// Returns where the letters are.
std::vector<QRectF> Paint(QPainter& painter, const QRectF& area, const Sketch& sketch,
                          const Drawing& drawing);

/// The colour of faults, readable on the palette's base.
QColor FaultColour(const QPalette& palette);

}  // namespace vanzet::view::qt
