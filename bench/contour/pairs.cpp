#include <cmath>
#include <memory>

#include "contour/builder.h"
#include "contour/constructions.h"
#include "contour/library.h"
#include "geometry/contour_index.h"
#include "geometry/equalise.h"

namespace vanzet::contour {
namespace {

using geometry::KurveEx;
using geometry::Matrix;
using geometry::Point;
using geometry::Span;

/// A vertex may be this far from the other contour for both to count as the same, in millimetres.
constexpr double kSameTolerance = 0.02;

KurveEx TransformCurve(const KurveEx& curve, const Matrix& motion) {
  KurveEx moved;
  for (Span span : curve.spans) {
    span.Transform(motion);
    moved.Add(span, true);
  }
  return moved;
}

Matrix Product(Matrix first, const Matrix& then) {
  first.Multiply(then);
  return first;
}

/// Moves the start of an open contour to the origin and its end onto the x axis: only there can the running
/// areas of two open contours, which the library compares, be equal.
Matrix ToOrigin(const KurveEx& curve) {
  Matrix m;
  if (curve.Closed()) return m;
  geometry::Vector2d chord(curve.Start(), curve.End());
  chord.Normalise();
  m.Translate(-curve.Start().x, -curve.Start().y);
  m.Rotate(-chord.dy, chord.dx, 3);
  return m;
}

bool Takes(const KurveEx& a, const KurveEx& b, const Matrix& motion) {
  const geometry::ContourIndex places(b);
  for (const Span& span : a.spans) {
    for (const double fraction : {0.0, 0.5}) {
      const Point moved = span.AlongFraction(fraction).Transform(motion);
      int number = 0;
      double along = 0;
      if (!(Dist(places.Near(moved, number, along), moved) <= kSameTolerance)) return false;
    }
  }
  return true;
}

/// The motion that the library finds, unless it is a wrong one: the library compares lengths and angles
/// alone.
std::optional<Matrix> Motion(const KurveEx& a, const KurveEx& b, bool mayMirror) {
  const Matrix homeOfA = ToOrigin(a), homeOfB = ToOrigin(b);
  Matrix* found = nullptr;
  const bool same =
      SameShape(TransformCurve(a, homeOfA), TransformCurve(b, homeOfB), found, false, 0, false, 0, mayMirror);
  const std::unique_ptr<Matrix> owner(found);
  if (!same) return {};
  const Matrix motion = Product(Product(homeOfA, *found), homeOfB.Inverse());
  if (!Takes(a, b, motion)) return {};
  return motion;
}

/// The library does not recognise a mirror image whose vertices come in mirrored order, so the mirror is
/// tried here.
std::optional<Matrix> MirroredMotion(const KurveEx& a, const KurveEx& b) {
  if (const auto motion = Motion(a, b, true)) return motion;
  Matrix mirror;
  mirror.Scale(1, -1, 1);
  const auto motion = Motion(TransformCurve(a, mirror), b, false);
  if (!motion) return {};
  return Product(mirror, *motion);
}

}  // namespace

Result<EqualPair> Equalise(const Contour& a, const Contour& b, bool force) {
  EqualPair equalised{{1, {}}, {2, {}}};
  VANZET_DO(Guarded(
      [&] { return EqualiseSpanCount(a.curve, b.curve, equalised.a.curve, equalised.b.curve, force); }));
  return equalised;
}

Result<std::optional<Matrix>> MotionOnto(const Contour& a, const Contour& b, bool mayMirror) {
  return Guarded([&] {
    auto motion = Motion(a.curve, b.curve, false);
    return motion || !mayMirror ? motion : MirroredMotion(a.curve, b.curve);
  });
}

}  // namespace vanzet::contour
