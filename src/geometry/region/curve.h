#pragma once

#include "geometry/box.h"
#include "geometry/point.h"

/// Short curves of the arrangement, by their ends and their curvature.
///
/// No centre appears, so that an arc of a huge radius is as exact as a line. With w = p - a, n the left
/// normal at `a` and k the curvature, the points of the whole line or circle are k w.w - 2 n.w = 0.
namespace geometry::region {

/// A line (k = 0), or an arc of up to a quarter turn that is monotone in x and y; k > 0 turns to the left.
struct Curve {
  Vector2d a, b;
  double k = 0;
};

/// Unit tangents at the ends.
struct Tangents {
  Vector2d start, end;
};
Tangents TangentsOf(const Curve& c);

/// The unit tangent of a line or circle where it is nearest to a point, by the tangent and the curvature at
/// another point of it and the way from there. Not a number at the centre.
Vector2d TangentNearest(const Vector2d& tangent, double k, const Vector2d& way);

/// The distance of the curve's middle from its chord, positive on the right of it; arcs that turn to the left
/// bulge to the right.
double Bulge(const Curve& c);
double LengthOf(const Curve& c);
/// The area between the chord and the curve, positive on the right of the chord.
double SegmentArea(const Curve& c);
/// The angle in (-pi, pi] from `reference` to the point of the curve at distance `reach` from its start.
double Heading(const Curve& c, double reach, const Vector2d& reference);

/// Which ends of a curve are ends of another one too.
struct CommonEnds {
  bool start = false, end = false;
};

/// A curve with what the questions below need, calculated once.
class PreparedCurve {
 public:
  PreparedCurve(const Curve& c, double margin);

  const Curve& Shape() const { return c_; }
  const geometry::Box& Bounds() const { return box_; }  ///< grown by the margin

  /// The signed distance of `p` from the whole line or circle, positive on the left.
  double LeftOf(const Vector2d& p) const;
  /// Whether `p` is within the margin of the curve, and between its ends along the chord.
  bool Passes(const Vector2d& p) const;
  /// Whether the curve is above the point, on the vertical line through it, which it has to cross.
  bool IsAbove(const Vector2d& p) const;
  /// The points that both curves have in common, or where they come within the margin of each other between
  /// their ends; up to two. Where one follows the other within the margin, all along or from a common end,
  /// there is none.
  int Meet(const PreparedCurve& other, const CommonEnds& common, Vector2d found[2]) const;

 private:
  /// The other curve's equation at the points of this one, a sigma^2 + b sigma + c; sigma is 2/k times the
  /// tangent of half of the angle from the start, which for a line is the distance.
  struct Along {
    double a, b, c;
  };
  Along EquationAlong(const PreparedCurve& other) const;
  bool IsNear(const Along& along, double sigma) const;
  bool FollowedBy(const Along& along) const;
  bool LeadsTo(double sigma, const Along& along, const CommonEnds& common) const;
  Vector2d At(double sigma) const;
  double Residual(const Vector2d& p) const;
  bool Accept(double sigma, const PreparedCurve& other, Vector2d& found) const;

  Curve c_;
  geometry::Box box_;
  Vector2d tangent_;
  double reach_ = 0;  ///< sigma of the end
  double margin_ = 0;
};

}  // namespace geometry::region
