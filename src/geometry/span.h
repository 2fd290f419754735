#pragma once

#include "geometry/box.h"
#include "geometry/elements.h"

/// One element of a contour, a line or an arc, and the vertex that ends it.
namespace geometry {

/// A word that carries a caller's data through contours: a number or a pointer.
using IndexWord = std::uintptr_t;

/// The kind of a span: a line, an arc anticlockwise, an arc clockwise.
enum : std::int32_t { LINEAR = 0, ACW = 1, CW = -1 };

/// Marks in the upper bits of an ID; the first that is set, in this order, counts.
inline constexpr std::uint32_t UNMARKED = 0x10000000u, ROLL_AROUND = 0x20000000u, INTERSECTION = 0x40000000u,
                               FULL_CIRCLE_KURVE = 0x80000000u;

/// The number in the low 24 bits of an ID, with sign.
std::int32_t IdNumber(std::uint32_t ID);

/// A vertex: the end of a span, the kind of that span, and the centre of an arc.
struct spVertex {
  std::int32_t type = LINEAR;
  std::uint32_t ID = UNMARKED;
  Point p;
  Point pc{0, 0};

  spVertex() = default;
  spVertex(int spanType, const Point& end, const Point& centre, std::uint32_t id = UNMARKED)
      : type(spanType), ID(id), p(end), pc(centre) {}
  /// Compares type, point and, for an arc, centre.
  bool operator==(const spVertex& v) const;
};

/// A line or an arc, with the properties that follow from its ends.
///
/// Shape   from `p0` to `p1`; an arc goes round `pc` in direction `dir`, always by less than a full turn, so
///         that a circle is two spans
/// Units   lengths in the current unit, angles in radians with the sign of `dir`, fractions from 0 to 1
/// Caches  `vs`, `ve` (unit tangents at the ends), `length`, `radius`, `angle`, `NullSpan` and `box` are
///         valid after `SetProperties`, and stale once a member before them has changed. `NullSpan` says that
///         the span is not longer than `TOLERANCE`
/// Errors  a query that needs the caches while they are stale throws L"SetProperties missing"
class Span {
 public:
  Point p0, p1;
  std::int32_t dir = 0;
  Point pc;
  std::uint32_t ID = UNMARKED;
  Vector2d vs, ve;
  double length = 0, radius = 0, angle = 0;
  bool NullSpan = true;
  geometry::Box box;
  IndexWord index0 = 0, index1 = 0;
  bool propertiesSet = false;

  /// Written out, so that a new element of a vector is not cleared as a whole before its members are set.
  constexpr Span() {}  // NOLINT(modernize-use-equals-default)
  /// These three run `SetProperties`.
  Span(int direction, const Point& start, const Point& end, const Point& centre, std::uint32_t id = UNMARKED,
       IndexWord word0 = 0, IndexWord word1 = 0);
  Span(const Point& start, const Point& end, std::uint32_t id = UNMARKED, IndexWord word0 = 0,
       IndexWord word1 = 0);
  Span(const spVertex& previous, const spVertex& v);

  /// Fills the caches. An arc without an angle becomes a line, an arc without chord or radius a null line;
  /// the centre of a null span becomes its start. With false the caches are only marked as stale. Throws
  /// L"Invalid Geometry - Radii mismatch - SetProperties" when the ends are at different distances from the
  /// centre, and leaves the caches stale.
  void SetProperties(bool returnProperties = true);
  /// The two steps of `SetProperties`, for many spans of which some are not needed in full: first tangents,
  /// radius, `NullSpan` and the length of a line, with the errors, then sweep, length of an arc and box.
  /// Between them the caches count as stale.
  void SetTangents();
  void SetMeasures();
  /// Throws L"SetProperties missing" when the caches are stale. Every query that reads them begins with it.
  void NeedProperties() const;

  /// Transforms or scales the span and sets its properties. A mirror changes the direction of an arc.
  void Transform(const Matrix& m);
  void Scale(double f);
  /// The span from its end to its start.
  Span Reversed() const;

  /// The point in the middle of the span.
  Point Mid() const;
  /// The centre of an arc, moved onto the bisector of its chord, so that both ends are equally far from it.
  Point CentreOnBisector() const;
  /// The point at a distance or at a fraction of the length from the start; the unit tangent at a fraction.
  Point Along(double d) const;
  Point AlongFraction(double f) const;
  Vector2d Tangent(double t) const;
  /// The motion that takes the start through the span in `n` steps.
  void StepMatrix(int n, Matrix& m) const;
  /// The span's share of the area of its contour; the area of a clockwise contour is positive. It is the
  /// trapezoid between the span and the x axis.
  double Area() const;
  /// Compares direction, ends and, for an arc, centre.
  bool operator==(const Span& s) const;
  /// Whether this span, with `s` before it, continues the same line or circle.
  bool SameGeometry(const Span& s) const;
  /// Grows `b` by the span, then by `TIGHT_TOLERANCE` on all sides, at each call.
  void Box(geometry::Box& b, bool withStart) const;

  /// The fraction with that tangent or at that point, among 10001 samples; -1 when none is within
  /// `TOLERANCE`.
  double FindTangent(const Vector2d& v) const;
  double FindPoint(const Point& p) const;
  /// Becomes the line or arc through p[0], p[n/2] and p[n] when all of p[0..n] are within `t` of it. The
  /// caches are stale then, except `radius` and `NullSpan`. A failed fit returns false and changes nothing.
  bool Fit(const Point* p, int n, double t);
  /// The number of chords that keep an arc within the tolerance; 0 for a line.
  int ChordCount(double chordTolerance) const;
  /// The span moved to the left by `off`. An arc that has shrunk away becomes a null span between the moved
  /// ends.
  Span Offset(double off) const;
  void MoveSideways(double off);  ///< does the same in place

  /// The nearest point of the whole line or circle; `t` is its distance along the span.
  Point Near(const Point& p, double& t) const;
  /// The nearest point of the span. Beyond the ends of an arc of up to half a turn, `t` decides which end it
  /// is: it wraps half a turn from the start, so the result may be the end that is farther in a straight
  /// line.
  Point NearClamped(const Point& p, double& t) const;
  /// Whether a point of the line or circle is between the ends; `t` is the fraction.
  bool OnSpan(const Point& p) const;
  bool OnSpan(const Point& p, double& t) const;
  /// Whether `p` is on the span within `TOLERANCE`. When `p` is too far away, `t` stays as it was.
  bool On(const Point& p) const;
  bool On(const Point& p, double& t) const;
  /// The distance of `p` from the span, and the nearest point.
  double Dist(const Point& p, Point& nearest) const;

 private:
  void GrowBox(geometry::Box& b, bool withStart) const;
  void SetLineTangents();
  void SetArcTangents();
  bool CarriesPoint(const Point& p) const;
  double ArcFraction(const Point& p) const;
};

/// The angle that an arc sweeps, in radians, below 0 when clockwise. `Span::angle` is exactly half a turn for
/// every arc within 0.18 degrees of one; this one is not rounded.
double SweepOf(const Span& arc);

/// A span and its offset.
struct SpanPair {
  Span source, offset;
};

}  // namespace geometry
