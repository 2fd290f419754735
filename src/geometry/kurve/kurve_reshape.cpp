#include <algorithm>
#include <utility>

#include "geometry/kurve.h"

/// Other vertices for a contour: reversed, split into chords, reduced, or a part of them.
namespace geometry {
namespace {

/// The vertices of a contour, ready to be compared with many lines.
///
/// A distance from a line rises and falls with each coordinate, and so does its rounding: where the corners
/// of a box are within the tolerance, all points inside are. That keeps long straight runs from costing the
/// square of their vertices, without changing any result.
class Runs {
 public:
  explicit Runs(const Kurve& k) : boxes_(k.blocks.size()) {
    points_.reserve(static_cast<std::size_t>(k.nVertices));
    for (std::size_t i = 0; i < static_cast<std::size_t>(k.nVertices); ++i) {
      const SpanVertexBlock& block = *k.blocks[i / kBlock];
      points_.emplace_back(block.x[i % kBlock], block.y[i % kBlock]);
      boxes_[i / kBlock].Insert(points_.back());
    }
  }

  /// Whether all vertices between the two lie within `tolerance` of the line from one to the other.
  bool Straight(std::size_t anchor, std::size_t current, double tolerance) const {
    const CLine line(points_[anchor], points_[current]);
    if (!line.ok) return false;
    for (std::size_t i = anchor + 1; i < current;) {
      const bool wholeBlock = i % kBlock == 0 && i + kBlock <= current;
      if (wholeBlock && Within(line, boxes_[i / kBlock], tolerance)) {
        i += kBlock;
      } else if (NearZero(line.Dist(points_[i]), tolerance)) {
        ++i;
      } else {
        return false;
      }
    }
    return true;
  }

 private:
  static constexpr std::size_t kBlock = SPANSTORAGE;

  static bool Within(const CLine& line, const Box& box, double tolerance) {
    const Point corners[] = {box.min, box.max, {box.min.x, box.max.y}, {box.max.x, box.min.y}};
    return std::ranges::all_of(corners,
                               [&](const Point& corner) { return NearZero(line.Dist(corner), tolerance); });
  }

  std::vector<Point> points_;
  std::vector<Box> boxes_;
};

/// A contour that grows by whole spans and pieces of spans of another.
class PartOfContour {
 public:
  PartOfContour(const Kurve& source, const Point& start) : source_(source) { part_.Start(start); }

  void AddWhole(int from, int to) {
    for (int i = from; i <= to; ++i) part_.Add(Read(i), true);
  }

  /// Adds the rest of span `i` after the start.
  void AddRest(int i) { part_.Add(Read(i), false); }

  /// Adds span `i` as far as `end`.
  void AddUpTo(int i, const Point& end, bool addNullSpan) {
    Span span = Read(i);
    span.p1 = end;
    part_.Add(span, addNullSpan);
  }

  /// Adds a line over the gap of an open contour.
  void BridgeToStart() {
    if (!source_.Closed()) part_.Add(Read(1).p0, false);
  }

  const Kurve& Result() const { return part_; }

 private:
  Span Read(int i) const {
    Span span;
    source_.Get(i, span, false, true);
    return span;
  }

  const Kurve& source_;
  Kurve part_;
};

}  // namespace

bool Kurve::Reverse(bool isReversed) {
  return std::exchange(reversed, isReversed);
}

void Kurve::Reverse() {
  const auto swapPoints = [this](int a, int b) {
    spVertex va = Stored(a);
    spVertex vb = Stored(b);
    Store(a, va.type, vb.p, va.pc, vb.ID);
    Store(b, vb.type, va.p, vb.pc, va.ID);
  };
  for (int a = 0, b = nVertices - 1; a < b; ++a, --b) swapPoints(a, b);
  // The span that ended at vertex v ends at vertex n - v now, and turns the other way.
  for (int a = 1, b = nVertices - 1; a <= b; ++a, --b) {
    const spVertex va = Stored(a);
    const spVertex vb = Stored(b);
    Store(a, -vb.type, va.p, vb.pc, UNMARKED);
    Store(b, -va.type, vb.p, va.pc, UNMARKED);
  }
  if (nVertices > 0) blocks[0]->ID[0] = UNMARKED;
}

bool Kurve::Split(double minimumRadius, double chordTolerance) {
  Kurve split;
  bool changed = false;
  Span span;
  for (int i = 0; i < nVertices; ++i) {
    int steps = 0;
    if (i > 0 && Stored(i).type != LINEAR) {
      GetStored(i, span);
      span.SetProperties();
      if (span.radius >= minimumRadius) steps = span.ChordCount(chordTolerance);
    }
    if (steps > 1) {
      split.AppendChords(span, steps);
      changed = true;
    } else {
      split.Add(Stored(i), true);
    }
    split.ModifyIndex(split.nVertices - 1, StoredIndex(i));
  }
  if (changed) TakeVertices(split);
  return changed;
}

/// All chords get the ID of the arc; the last one ends where it did.
void Kurve::AppendChords(const Span& arc, int steps) {
  Matrix step;
  arc.StepMatrix(steps, step);
  Point p = arc.p0;
  for (int i = 1; i < steps; ++i) {
    p = p.Transform(step);
    Add(spVertex(LINEAR, p, Point(0, 0), arc.ID), true);
  }
  Add(spVertex(LINEAR, arc.p1, Point(0, 0), arc.ID), true);
}

int Kurve::Reduce(double tolerance) {
  if (SpanCount() < 3) return 0;
  const Runs vertices(*this);
  Kurve kept;
  const auto keep = [&](int vertexNumber) {
    kept.Add(Stored(vertexNumber), true);
    kept.ModifyIndex(kept.nVertices - 1, StoredIndex(vertexNumber));
  };
  const auto straight = [&](int from, int to) {
    return vertices.Straight(static_cast<std::size_t>(from), static_cast<std::size_t>(to), tolerance);
  };
  keep(0);
  int anchor = 0;
  for (int current = 1; current < nVertices; ++current) {
    const bool isArc = Stored(current).type != LINEAR;
    const bool runs = current == anchor + 1 || (!isArc && straight(anchor, current));
    if (!runs) keep(anchor = current - 1);
    if (isArc) keep(anchor = current);
  }
  if (anchor != nVertices - 1) keep(nVertices - 1);
  const int removed = nVertices - kept.nVertices;
  if (removed > 0) TakeVertices(kept);
  return removed;
}

Kurve Part(const Kurve& k, int startSpan, const Point& startPoint, int endSpan, const Point& endPoint) {
  Point start = startPoint;
  Point end = endPoint;
  if (startSpan == 0) start = k.Near(startPoint, startSpan);
  if (endSpan == 0) end = k.Near(endPoint, endSpan);
  if (startSpan == 0 || endSpan == 0) return {};

  PartOfContour part(k, start);
  if (startSpan == endSpan) {
    part.AddUpTo(startSpan, end, true);
  } else {
    part.AddRest(startSpan);
    if (startSpan < endSpan) {
      part.AddWhole(startSpan + 1, endSpan - 1);
    } else {
      part.AddWhole(startSpan + 1, k.SpanCount());
      part.BridgeToStart();
      part.AddWhole(1, endSpan - 1);
    }
    part.AddUpTo(endSpan, end, false);
  }
  return part.Result();
}

}  // namespace geometry
