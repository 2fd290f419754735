#include <utility>

#include "geometry/kurve.h"

/// Operations that rewrite the stored vertices.
namespace geometry {

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

}  // namespace geometry
