#pragma once

#include <QPainter>
#include <QPalette>
#include <string>

#include "base/length_unit.h"
#include "drawing/shown.h"
#include "window/theme.h"
#include "window/views/snap.h"
#include "window/views/view_frame.h"

namespace vanzet::window {

/// Paints one picture of a drawing.
class DrawingPainter {
 public:
  DrawingPainter(QPainter& painter, const ViewFrame& frame, const QSizeF& size, const QPalette& palette,
                 LengthUnit unit);

  /// The background with its grid.
  void PaintGround();
  /// The axis of the spindle.
  void PaintAxis();
  /// Marks the figure of that name.
  void PaintLayers(const drawing::ShownLayers& layers, const std::string& marked);
  /// A ruler in the corner.
  void PaintScale();
  /// Lines across the view through the place.
  void PaintCross(const QPointF& place);
  void PaintSnap(const Snap& snap);
  void PaintHint(const QString& hint);

 private:
  void PaintGroup(const drawing::ShownGroup& group, const std::string& marked);
  void PaintCurve(const drawing::ShownCurve& curve, const QPen& pen);
  void PaintGrid(double step, const QColor& colour);

  QPainter& painter_;
  const ViewFrame& frame_;
  QSizeF size_;
  QRectF seen_;  ///< the view and a margin
  const QPalette& palette_;
  const ViewColours& colours_;
  LengthUnit unit_;  ///< of the grid and the ruler
};

}  // namespace vanzet::window
