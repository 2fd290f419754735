#pragma once

#include <QPainterPath>
#include <QPointF>
#include <QStringList>
#include <cstdint>
#include <vector>

#include "devices/device.h"
#include "view/shared/page_values.h"

/// A dimensioned drawing as plain data, before it has a size and colours.
///
/// Units    those of the values; x to the right, y up
namespace vanzet::view::qt {

/// The kinds of shape. The painter takes their colours from the palette of the moment.
enum class Ink {
  kMaterial,  ///< cut: filled and hatched
  kBody,      ///< seen from outside: filled
  kGhost,     ///< there for orientation: an outline, faint
  kPart,      ///< emphasised: filled in the colour of selections
  kAxis,      ///< a centre line
};

struct Shape {
  QPainterPath path;
  Ink ink;
};

using devices::Where;

/// A distance, an angle or a corner with the letter of a value.
struct Measure {
  using Kind = devices::MeasureKind;

  Kind kind = Kind::kAlong;
  Where where = Where::kInside;
  int lane = 0;
  QString letter = {};
  std::int32_t control = 0;  ///< the edit of its value: while that has the focus, the measure is emphasised
  QPointF from = {};
  QPointF to = {};
  double at = 0.5;  ///< the place of the letter on its line, from 0 to 1
};

struct Sketch {
  std::vector<Shape> shapes = {};
  std::vector<Measure> measures = {};
  QStringList notes = {};                ///< lines below the drawing
  QString fault = {};                    ///< what is wrong with the values; empty: nothing
  std::vector<std::int32_t> wrong = {};  ///< the edits of the values that are at fault
  bool isExample = false;                ///< shows what the letters mean, not the values of the page
};

inline void Add(Sketch& sketch, Ink ink, const QPainterPath& path) {
  sketch.shapes.push_back({path, ink});
}

QPainterPath Rectangle(double left, double bottom, double right, double top);
QPainterPath Stroke(QPointF from, QPointF to);

/// Sets the fault of a sketch that has none yet, if an edit wants a number and does not hold one. `name` is
/// the name of the edit; without one the text of the edit is quoted.
void FindNoNumber(Sketch& sketch, const PageValues& values, std::int32_t edit, const QString& name = {});

}  // namespace vanzet::view::qt
