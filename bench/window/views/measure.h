#pragma once

#include <QPainter>
#include <QPalette>
#include <QString>
#include <optional>

#include "base/length_unit.h"
#include "geometry/point.h"

namespace vanzet::window {

/// Two points that a person measures between: the first click gives one, the second the other, a third one
/// begins again.
///
/// Space   x along the spindle; a point of the drawing has z = 0
class Measure {
 public:
  void Click(const geometry::Point3d& point);
  void Clear() { from_.reset(), to_.reset(); }

  const std::optional<geometry::Point3d>& from() const { return from_; }
  const std::optional<geometry::Point3d>& to() const { return to_; }

  /// The measures when the next click were at `next`, or those that were taken already. A point alone: its
  /// place and its diameter; two: the distance, the difference along the axis and in diameter, and the angle
  /// to the axis. Empty before the first click.
  QString Text(LengthUnit unit, const std::optional<geometry::Point3d>& next = {}) const;

 private:
  std::optional<geometry::Point3d> from_, to_;
};

/// Paints a measure between two places of a view, with its text beside the second one.
void PaintMeasure(QPainter& painter, const QPointF& from, const QPointF& to, const QString& text,
                  const QPalette& palette);

}  // namespace vanzet::window
