#include "view/qt/painter_canvas.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <QPolygonF>

namespace vanzet::view::qt {
namespace {

QPainterPath PathOf(const Path& path) {
  QPainterPath lines;
  for (const Ring& ring : path.rings) {
    QPolygonF polygon;
    for (const Point& point : ring.points) polygon.append({point.x, point.y});
    lines.addPolygon(polygon);
    if (ring.isClosed) lines.closeSubpath();
  }
  return lines;
}

QPen PenOf(const Pen& pen) {
  constexpr Qt::PenStyle kStyles[] = {Qt::SolidLine, Qt::DashLine, Qt::DashDotLine};
  return {ColourOf(pen.colour), pen.width, kStyles[static_cast<int>(pen.dash)],
          pen.isRound ? Qt::RoundCap : Qt::SquareCap, pen.isRound ? Qt::RoundJoin : Qt::BevelJoin};
}

QRectF RectOf(const Box& box) {
  return {QPointF(box.left, box.top), QPointF(box.right, box.bottom)};
}

constexpr int kWrapped = Qt::AlignHCenter | Qt::AlignBottom | Qt::TextWordWrap;

}  // namespace

PainterCanvas::PainterCanvas(QPainter& painter, const QFont& font) : painter_(painter) {
  painter_.setRenderHint(QPainter::Antialiasing);
  painter_.setFont(font);
}

void PainterCanvas::Fill(const Path& path, Rgb colour) {
  painter_.fillPath(PathOf(path), ColourOf(colour));
}

void PainterCanvas::Hatch(const Path& path, Rgb colour) {
  painter_.fillPath(PathOf(path), QBrush(ColourOf(colour), Qt::BDiagPattern));
}

void PainterCanvas::Stroke(const Path& path, const Pen& pen) {
  painter_.strokePath(PathOf(path), PenOf(pen));
}

void PainterCanvas::Plate(const Box& box, double rounding, Rgb fill, const Pen& frame) {
  painter_.setPen(PenOf(frame));
  painter_.setBrush(ColourOf(fill));
  painter_.drawRoundedRect(RectOf(box), rounding, rounding);
}

void PainterCanvas::Text(const Box& box, TextPlace place, const std::string& text, Rgb colour) {
  painter_.setPen(ColourOf(colour));
  const int flags = place == TextPlace::kCentre ? static_cast<int>(Qt::AlignCenter) : kWrapped;
  painter_.drawText(RectOf(box), flags, QString::fromStdString(text));
}

double PainterCanvas::TextWidth(const std::string& text) {
  return QFontMetricsF(painter_.font()).horizontalAdvance(QString::fromStdString(text));
}

double PainterCanvas::LineHeight() {
  return QFontMetricsF(painter_.font()).height();
}

double PainterCanvas::WrappedHeight(const std::string& text, double width) {
  return painter_.boundingRect(QRectF(0, 0, width, 0), kWrapped, QString::fromStdString(text)).height();
}

QColor ColourOf(Rgb colour) {
  return {colour.red, colour.green, colour.blue};
}

Palette ColoursOf(const QPalette& palette) {
  const auto colour = [&](QPalette::ColorRole role) {
    const QColor found = palette.color(role);
    const auto byte = [](int part) { return static_cast<std::uint8_t>(part); };
    return Rgb{byte(found.red()), byte(found.green()), byte(found.blue())};
  };
  return {colour(QPalette::Text), colour(QPalette::Base), colour(QPalette::Highlight),
          colour(QPalette::HighlightedText)};
}

}  // namespace vanzet::view::qt
