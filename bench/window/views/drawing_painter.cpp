#include "window/views/drawing_painter.h"

#include <algorithm>
#include <cmath>

#include "contour/contour.h"
#include "window/qt_text.h"
#include "window/views/steps.h"
#include "window/views/view_frame.h"

namespace vanzet::window {
namespace {

constexpr double kLine = 1.6, kMarkedLine = 3;  // pixels
constexpr double kAround = 64;                  // pixels around the view in which lines are still drawn
constexpr int kFill = 20;                       // of 255: how much closed contours are filled
constexpr double kRuler = 130;                  // pixels that the ruler has at most

QPen PenOf(const drawing::Pen& pen, const QPalette& palette, bool isMarked) {
  QPen drawn(OnGround(QColor(ToQString(pen.colour->svg)), palette), isMarked ? kMarkedLine : kLine);
  drawn.setCapStyle(Qt::RoundCap);
  drawn.setJoinStyle(Qt::RoundJoin);
  if (pen.style->dashes[0] <= 0) return drawn;
  QList<qreal> dashes;
  for (const double dash : pen.style->dashes) dashes << std::max(0.1, dash / drawn.widthF());
  drawn.setDashPattern(dashes);
  drawn.setCapStyle(Qt::FlatCap);
  return drawn;
}

}  // namespace

DrawingPainter::DrawingPainter(QPainter& painter, const ViewFrame& frame, const QSizeF& size,
                               const QPalette& palette, LengthUnit unit)
    : painter_(painter),
      frame_(frame),
      size_(size),
      seen_(QRectF(QPointF(0, 0), size).adjusted(-kAround, -kAround, kAround, kAround)),
      palette_(palette),
      colours_(ColoursFor(palette)),
      unit_(unit) {
  painter_.setRenderHint(QPainter::Antialiasing);
}

void DrawingPainter::PaintGround() {
  painter_.fillRect(QRectF(QPointF(0, 0), size_), colours_.background);
  const double step = InMillimetres(GridStep(frame_.scale(), unit_), unit_);
  PaintGrid(step, colours_.grid);
  PaintGrid(step * 5, colours_.gridStrong);
}

void DrawingPainter::PaintAxis() {
  const double axis = frame_.ToScreen({0, 0}).y();
  if (axis < 0 || axis > size_.height()) return;
  QPen pen(colours_.axis, 1);
  pen.setDashPattern({14, 4, 3, 4});
  painter_.setPen(pen);
  painter_.drawLine(QPointF(0, axis), QPointF(size_.width(), axis));
}

void DrawingPainter::PaintGrid(double step, const QColor& colour) {
  painter_.setPen(QPen(colour, 1));
  painter_.setRenderHint(QPainter::Antialiasing, false);
  const geometry::Point low = frame_.ToPlane({0, size_.height()}), high = frame_.ToPlane({size_.width(), 0});
  for (double i = std::ceil(low.x / step); i * step <= high.x; ++i) {
    const double x = std::round(frame_.ToScreen({i * step, 0}).x());
    painter_.drawLine(QPointF(x, 0), QPointF(x, size_.height()));
  }
  for (double i = std::ceil(low.y / step); i * step <= high.y; ++i) {
    const double y = std::round(frame_.ToScreen({0, i * step}).y());
    painter_.drawLine(QPointF(0, y), QPointF(size_.width(), y));
  }
  painter_.setRenderHint(QPainter::Antialiasing);
}

void DrawingPainter::PaintLayers(const drawing::ShownLayers& layers, const std::string& marked) {
  for (const auto& [name, groups] : layers) {
    for (const drawing::ShownGroup& group : groups) PaintGroup(group, marked);
  }
}

void DrawingPainter::PaintGroup(const drawing::ShownGroup& group, const std::string& marked) {
  for (const drawing::ShownCurve& curve : group.curves) {
    const bool isMarked = !marked.empty() && curve.figure == marked;
    PaintCurve(curve, PenOf(group.pen, palette_, isMarked));
  }
  painter_.setPen(PenOf(group.pen, palette_, false));
  for (const geometry::CLine& line : group.lines) {
    const QPolygonF chain = {{frame_.ToScreen(line.At(-contour::kLargestCoordinate)),
                              frame_.ToScreen(line.At(contour::kLargestCoordinate))}};
    for (const QPolygonF& piece : ClipChain(chain, seen_)) painter_.drawPolyline(piece);
  }
}

void DrawingPainter::PaintCurve(const drawing::ShownCurve& curve, const QPen& pen) {
  const QPolygonF chain = ChordsOf(curve.curve, frame_);
  if (!chain.boundingRect().adjusted(-1, -1, 1, 1).intersects(seen_)) return;
  if (drawing::IsFilled(curve.curve)) {
    QColor fill = pen.color();
    fill.setAlpha(kFill);
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(fill);
    painter_.drawPolygon(ClipArea(chain, seen_));
  }
  painter_.setPen(pen);
  painter_.setBrush(Qt::NoBrush);
  for (const QPolygonF& piece : ClipChain(chain, seen_)) painter_.drawPolyline(piece);
}

void DrawingPainter::PaintScale() {
  const double length = RoundStep(InUnit(kRuler / frame_.scale(), unit_));
  const double pixels = InMillimetres(length, unit_) * frame_.scale();
  const QPointF left(16, size_.height() - 16), right = left + QPointF(pixels, 0);
  painter_.setPen(QPen(colours_.faint, 1.4));
  painter_.drawPolyline(QPolygonF({left - QPointF(0, 5), left, right, right - QPointF(0, 5)}));
  painter_.drawText(QRectF(left - QPointF(40, 22), QSizeF(pixels + 80, 18)), Qt::AlignCenter,
                    QString::number(length) + " " + ToQString(WordOf(unit_)));
}

void DrawingPainter::PaintCross(const QPointF& place) {
  painter_.setPen(QPen(colours_.accent, 1));
  painter_.drawLine(QPointF(0, place.y()), QPointF(size_.width(), place.y()));
  painter_.drawLine(QPointF(place.x(), 0), QPointF(place.x(), size_.height()));
}

void DrawingPainter::PaintSnap(const Snap& snap) {
  const QPointF at = frame_.ToScreen(snap.point);
  painter_.setPen(QPen(colours_.accent, 2));
  painter_.setBrush(Qt::NoBrush);
  switch (snap.kind) {
    case Snap::Kind::kEnd: painter_.drawRect(QRectF(at - QPointF(6, 6), QSizeF(12, 12))); return;
    case Snap::Kind::kCentre: painter_.drawEllipse(at, 7, 7); return;
    case Snap::Kind::kIntersection:
      painter_.drawLine(at - QPointF(6, 6), at + QPointF(6, 6));
      painter_.drawLine(at - QPointF(6, -6), at + QPointF(6, -6));
  }
}

void DrawingPainter::PaintHint(const QString& hint) {
  painter_.setPen(colours_.faint);
  painter_.drawText(QRectF(QPointF(0, 0), size_).adjusted(24, 24, -24, -24),
                    Qt::AlignCenter | Qt::TextWordWrap, hint);
}

}  // namespace vanzet::window
