#include "window/views/polyline.h"

#include <QLineF>
#include <algorithm>
#include <cmath>
#include <optional>

#include "contour/sweep.h"

namespace vanzet::window {
namespace {

using geometry::Span;

constexpr double kAside = 0.15;      // pixels that a chord may be beside its arc
constexpr int kMostChords = 20'000;  // of one arc

void AddArc(const Span& arc, const ViewFrame& frame, QPolygonF& chain) {
  const double sweep = contour::SweepOf(arc);
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

/// The part of a line that lies in a rectangle.
std::optional<QLineF> Clipped(const QPointF& a, const QPointF& b, const QRectF& seen) {
  double from = 0, to = 1;
  const double dx = b.x() - a.x(), dy = b.y() - a.y();
  struct Side {
    double direction, room;
  };
  for (const auto& [direction, room] : {Side{-dx, a.x() - seen.left()}, Side{dx, seen.right() - a.x()},
                                        Side{-dy, a.y() - seen.top()}, Side{dy, seen.bottom() - a.y()}}) {
    if (direction == 0 && room < 0) return std::nullopt;
    if (direction < 0) from = std::max(from, room / direction);
    if (direction > 0) to = std::min(to, room / direction);
  }
  if (from > to) return std::nullopt;
  const QPointF way(dx, dy);
  return QLineF(a + way * from, a + way * to);
}

/// Keeps what lies on the inner side of one edge: `inner` is above 0 there.
template <class Inner>
QPolygonF CutBy(const QPolygonF& area, Inner inner) {
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

std::vector<QPolygonF> Within(const QPolygonF& chain, const QRectF& seen) {
  std::vector<QPolygonF> pieces;
  for (qsizetype i = 1; i < chain.size(); ++i) {
    const auto line = Clipped(chain[i - 1], chain[i], seen);
    if (!line) continue;
    if (pieces.empty() || pieces.back().back() != line->p1()) pieces.emplace_back() << line->p1();
    pieces.back() << line->p2();
  }
  return pieces;
}

QPolygonF AreaWithin(const QPolygonF& area, const QRectF& seen) {
  if (seen.contains(area.boundingRect())) return area;
  QPolygonF left = CutBy(area, [&](const QPointF& p) { return p.x() - seen.left(); });
  left = CutBy(left, [&](const QPointF& p) { return seen.right() - p.x(); });
  left = CutBy(left, [&](const QPointF& p) { return p.y() - seen.top(); });
  return CutBy(left, [&](const QPointF& p) { return seen.bottom() - p.y(); });
}

}  // namespace vanzet::window
