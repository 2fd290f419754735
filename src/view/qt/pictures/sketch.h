#pragma once

#include <QPainterPath>
#include <QPointF>
#include <QString>
#include <cstdint>
#include <vector>

#include "devices/device.h"

/// A dimensioned drawing as plain data, before it has a size and colours.
///
/// Units    those of the values; x to the right, y up
namespace vanzet::view::qt {

/// What a shape is drawn as. The painter takes the colours from the palette of the moment.
enum class Ink {
  kMaterial,  ///< cut: filled and hatched
  kBody,      ///< seen from outside: filled
  kGhost,     ///< there for orientation: an outline, faint
  kPart,      ///< what stands out: filled in the colour of selections
  kAxis,      ///< a centre line
};

struct Shape {
  QPainterPath path;
  Ink ink;
};

using devices::Where;

/// A distance, an angle or a corner that bears the letter of a value.
struct Measure {
  using Kind = devices::MeasureKind;

  Kind kind = Kind::kAlong;
  Where where = Where::kInside;
  int lane = 0;
  QString letter = {};
  std::int32_t control = 0;  ///< the edit of its value: while that has the focus, the measure stands out
  QPointF from = {};
  QPointF to = {};
  double at = 0.5;  ///< where on its line the letter stands, from 0 to 1
};

struct Sketch {
  std::vector<Shape> shapes = {};
  std::vector<Measure> measures = {};
  std::vector<QString> notes = {};       ///< lines below the drawing
  QString fault = {};                    ///< what is wrong with the values; empty: nothing
  std::vector<std::int32_t> wrong = {};  ///< the edits of the values that are at fault
  bool isExample = false;                ///< shows what the letters mean, not the values of the page
};

inline void Add(Sketch& sketch, Ink ink, const QPainterPath& path) {
  sketch.shapes.push_back({path, ink});
}

QPainterPath Rectangle(double left, double bottom, double right, double top);
QPainterPath Stroke(QPointF from, QPointF to);

}  // namespace vanzet::view::qt
