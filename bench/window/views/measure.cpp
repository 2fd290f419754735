#include "window/views/measure.h"

#include <cmath>

#include "base/number_text.h"
#include "window/qt_text.h"
#include "window/theme.h"

namespace vanzet::window {
namespace {

using geometry::Point3d;

double DiameterAt(const Point3d& point) {
  return 2 * std::hypot(point.y, point.z);
}

QString Length(double millimetres, LengthUnit unit) {
  const int decimals = unit == LengthUnit::kInch ? 4 : 3;
  return ToQString(ShortDecimalText(InUnit(millimetres, unit), decimals));
}

}  // namespace

void Measure::Click(const Point3d& point) {
  if (!from_ || to_) {
    from_ = point;
    to_.reset();
  } else {
    to_ = point;
  }
}

QString Measure::Text(LengthUnit unit, const std::optional<Point3d>& next) const {
  if (!from_) return {};
  const QString of = " " + QString::fromUtf8(std::string(WordOf(unit)).c_str());
  const std::optional<Point3d> end = to_ ? to_ : next;
  if (!end) return QString("X %1  Ø %2").arg(Length(from_->x, unit), Length(DiameterAt(*from_), unit)) + of;
  const double along = end->x - from_->x, across = DiameterAt(*end) - DiameterAt(*from_);
  const double rise = std::hypot(end->y - from_->y, end->z - from_->z);
  const double angle = std::atan2(rise, std::abs(along)) * 180 / geometry::PI;
  return QString("%1  ΔX %2  ΔØ %3%4  %5°")
      .arg(Length(Dist(*from_, *end), unit), Length(along, unit), Length(across, unit), of,
           ToQString(ShortDecimalText(angle, 2)));
}

void PaintMeasure(QPainter& painter, const QPointF& from, const QPointF& to, const QString& text,
                  const QPalette& palette) {
  const ViewColours& colours = ColoursFor(palette);
  painter.setPen(QPen(colours.accent, 2));
  painter.setBrush(colours.accent);
  painter.drawLine(from, to);
  for (const QPointF& end : {from, to}) painter.drawEllipse(end, 3, 3);
  const QFontMetricsF metrics(painter.font());
  QRectF box(to + QPointF(14, -metrics.height() - 10),
             QSizeF(metrics.horizontalAdvance(text) + 12, metrics.height() + 6));
  box.moveRight(std::min(box.right(), painter.viewport().right() - 2.0));
  box.moveTop(std::max(box.top(), 2.0));
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette.toolTipBase());
  painter.drawRoundedRect(box, 3, 3);
  painter.setPen(palette.color(QPalette::ToolTipText));
  painter.drawText(box, Qt::AlignCenter, text);
}

}  // namespace vanzet::window
