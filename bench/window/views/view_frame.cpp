#include "window/views/view_frame.h"

#include <QLineF>
#include <algorithm>
#include <cmath>
#include <optional>

namespace vanzet::window {
namespace {

using geometry::Span;

constexpr double kMargin = 0.08;              // of the size, on each side
constexpr double kUsualExtent = 200;          // millimetres that are shown of an empty drawing
constexpr double kLeast = 1e-4, kMost = 1e5;  // pixels a millimetre

constexpr double kAside = 0.15;      // pixels that a chord may be beside its arc
constexpr int kMostChords = 20'000;  // of one arc

void AddArc(const Span& arc, const ViewFrame& frame, QPolygonF& chain) {
  const double sweep = SweepOf(arc);
  const double pixels = std::max(arc.radius * frame.scale(), 1e-3);
  const double step = 2 * std::acos(std::max(0.0, 1 - kAside / pixels));
  const int chords = std::clamp(static_cast<int>(std::ceil(std::fabs(sweep) / step)), 4, kMostChords);
  const double start = std::atan2(arc.p0.y - arc.pc.y, arc.p0.x - arc.pc.x);
  for (int i = 1; i < chords; ++i) {
    const double angle = start + sweep * i / chords;
    chain << frame.ToScreen(
        {arc.pc.x + arc.radius * std::cos(angle), arc.pc.y + arc.radius * std::sin(angle)});
  }
}

/// The part of a line within a rectangle.
std::optional<QLineF> ClipLine(const QPointF& a, const QPointF& b, const QRectF& rectangle) {
  double from = 0, to = 1;
  const double dx = b.x() - a.x(), dy = b.y() - a.y();
  struct Side {
    double direction, room;
  };
  for (const auto& [direction, room] :
       {Side{-dx, a.x() - rectangle.left()}, Side{dx, rectangle.right() - a.x()},
        Side{-dy, a.y() - rectangle.top()}, Side{dy, rectangle.bottom() - a.y()}}) {
    if (direction == 0 && room < 0) return std::nullopt;
    if (direction < 0) from = std::max(from, room / direction);
    if (direction > 0) to = std::min(to, room / direction);
  }
  if (from > to) return std::nullopt;
  const QPointF way(dx, dy);
  return QLineF(a + way * from, a + way * to);
}

/// The part of an area where `inner` is above 0: on the inner side of an edge.
template <class Inner>
QPolygonF ClipBy(const QPolygonF& area, Inner inner) {
  QPolygonF left;
  for (qsizetype i = 0; i < area.size(); ++i) {
    const QPointF &a = area[i], &b = area[(i + 1) % area.size()];
    const double ia = inner(a), ib = inner(b);
    if (ia >= 0) left << a;
    if ((ia < 0) != (ib < 0)) left << a + (b - a) * (ia / (ia - ib));
  }
  return left;
}

}  // namespace

void ViewFrame::Fit(const geometry::Box& box, const QSizeF& size) {
  geometry::Box shown = box;
  if (shown.min.x > shown.max.x) shown = geometry::Box({0, 0}, {0, 0});
  if (std::max(shown.Width(), shown.Height()) <= 0) shown.Grow(kUsualExtent / 2);
  const double room = 1 - 2 * kMargin;
  scale_ = std::clamp(std::min(size.width() * room / std::max(shown.Width(), 1e-9),
                               size.height() * room / std::max(shown.Height(), 1e-9)),
                      kLeast, kMost);
  const geometry::Point middle = shown.Mid();
  origin_ = {size.width() / 2 - scale_ * middle.x, size.height() / 2 + scale_ * middle.y};
}

void ViewFrame::ZoomAt(const QPointF& place, double factor) {
  const double scale = std::clamp(scale_ * factor, kLeast, kMost);
  origin_ = place + (origin_ - place) * (scale / scale_);
  scale_ = scale;
}

QPolygonF ChordsOf(const geometry::Kurve& curve, const ViewFrame& frame) {
  QPolygonF chain;
  for (int i = 1; i <= curve.SpanCount(); ++i) {
    Span span;
    curve.Get(i, span, true);
    if (i == 1) chain << frame.ToScreen(span.p0);
    if (span.dir != geometry::LINEAR) AddArc(span, frame, chain);
    chain << frame.ToScreen(span.p1);
  }
  return chain;
}

std::vector<QPolygonF> ClipChain(const QPolygonF& chain, const QRectF& rectangle) {
  std::vector<QPolygonF> pieces;
  for (qsizetype i = 1; i < chain.size(); ++i) {
    const auto line = ClipLine(chain[i - 1], chain[i], rectangle);
    if (!line) continue;
    if (pieces.empty() || pieces.back().back() != line->p1()) pieces.emplace_back() << line->p1();
    pieces.back() << line->p2();
  }
  return pieces;
}

QPolygonF ClipArea(const QPolygonF& area, const QRectF& rectangle) {
  if (rectangle.contains(area.boundingRect())) return area;
  QPolygonF left = ClipBy(area, [&](const QPointF& p) { return p.x() - rectangle.left(); });
  left = ClipBy(left, [&](const QPointF& p) { return rectangle.right() - p.x(); });
  left = ClipBy(left, [&](const QPointF& p) { return p.y() - rectangle.top(); });
  return ClipBy(left, [&](const QPointF& p) { return rectangle.bottom() - p.y(); });
}

}  // namespace vanzet::window
