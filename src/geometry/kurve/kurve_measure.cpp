#include "geometry/kurve.h"

/// Length, area, extent and nearest places of contours.
namespace geometry {

double Kurve::UniformScale() const {
  double scale = 1.0;
  if (!GetUniformScale(scale)) ThrowError(L"Differential Scale not allowed for this method", 0, 1000);
  return scale;
}

bool Kurve::Closed() const {
  return nVertices >= 2 && Stored(0).p == Stored(nVertices - 1).p;
}

double Kurve::Perim() const {
  const double scale = UniformScale();
  double sum = 0;
  Span span;
  for (int i = 1; i <= SpanCount(); ++i) {
    // Either sense of reading has the same lengths; a line's needs none of its other properties.
    if (GetStored(i, span) == LINEAR) {
      sum += Vector2d(span.p0, span.p1).Normalise();
    } else {
      span.SetProperties();
      sum += span.length;
    }
  }
  return sum * scale;
}

double Kurve::Area() const {
  const double scale = UniformScale();
  if (!Closed()) return 0.0;
  double sum = 0;
  Span span;
  for (int i = 1; i <= SpanCount(); ++i) {
    // The share of a line follows from its ends.
    if (GetStored(i, span) != LINEAR) span.SetProperties();
    sum += span.Area();
  }
  return sum * scale * scale;
}

void Kurve::Minmax(Point& min, Point& max) const {
  UniformScale();
  Box box;
  Span span;
  for (int i = 1; i <= SpanCount(); ++i) {
    Get(i, span, true, true);
    span.Box(box, i == 1);
  }
  min = box.min;
  max = box.max;
}

Point Kurve::NearToVertex(const Point& p, int& vertexNumber) const {
  const Point own = p.Transform(Inverse());
  double best = 1e100;
  Point nearest = INVALID_POINT;
  vertexNumber = 0;
  for (int i = 0; i < nVertices; ++i) {
    Point vertex;
    Point unusedCentre;
    Get(i, vertex, unusedCentre);
    const double distance = Dist(own, vertex);
    if (distance < best) {
      best = distance;
      nearest = vertex;
      vertexNumber = i;
    }
  }
  return nearest.ok ? nearest.Transform(*this) : nearest;
}

Point Kurve::Near(const Point& p, int& spanNumber) const {
  double best = 1e100;
  Point nearest = INVALID_POINT;
  spanNumber = 0;
  Span span;
  for (int i = 1; i <= SpanCount() && !(best < TOLERANCE); ++i) {
    Get(i, span, true, true);
    double t = 0;
    const Point candidate = span.NearClamped(p, t);
    const double distance = Dist(p, candidate);
    if (distance < best) {
      best = distance;
      nearest = candidate;
      spanNumber = i;
    }
  }
  return nearest;
}

}  // namespace geometry
