#include <cmath>
#include <memory>

#include "contour/constructions.h"
#include "contour/library.h"
#include "contour/sound.h"
#include "geometry/contour_index.h"
#include "geometry/equalise.h"

namespace vanzet::contour {
namespace {

using geometry::KurveEx;
using geometry::Matrix;
using geometry::Point;
using geometry::Span;

/// How far a vertex may lie beside the other contour for one to be the other, in millimetres.
constexpr double kSameTolerance = 0.02;

KurveEx Moved(const KurveEx& curve, const Matrix& motion) {
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

/// Takes the start of an open contour to the origin and its end onto the x axis: only there do the library's
/// running areas of two open contours compare.
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

/// The motion that the library finds, if it is one: lengths and angles alone may deceive it.
std::optional<Matrix> Motion(const KurveEx& a, const KurveEx& b, bool mayMirror) {
  const Matrix homeOfA = ToOrigin(a), homeOfB = ToOrigin(b);
  Matrix* found = nullptr;
  const bool same = SameShape(Moved(a, homeOfA), Moved(b, homeOfB), found, false, 0, false, 0, mayMirror);
  const std::unique_ptr<Matrix> owner(found);
  if (!same) return {};
  const Matrix motion = Product(Product(homeOfA, *found), homeOfB.Inverse());
  if (!Takes(a, b, motion)) return {};
  return motion;
}

/// A contour that is mirrored in the order of its vertices the library does not know for a mirror image.
std::optional<Matrix> MirroredMotion(const KurveEx& a, const KurveEx& b) {
  if (const auto motion = Motion(a, b, true)) return motion;
  Matrix mirror;
  mirror.Scale(1, -1, 1);
  const auto motion = Motion(Moved(a, mirror), b, false);
  if (!motion) return {};
  return Product(mirror, *motion);
}

}  // namespace

Result<Equalised> EqualisedOf(const Contour& a, const Contour& b, bool force) {
  Equalised equalised{{1, {}}, {2, {}}};
  const auto count = Guarded(
      [&] { return EqualiseSpanCount(a.curve, b.curve, equalised.a.curve, equalised.b.curve, force); });
  if (!count) return count.fault();
  return equalised;
}

Result<std::optional<Matrix>> MotionOnto(const Contour& a, const Contour& b, bool mayMirror) {
  return Guarded([&] {
    auto motion = Motion(a.curve, b.curve, false);
    return motion || !mayMirror ? motion : MirroredMotion(a.curve, b.curve);
  });
}

}  // namespace vanzet::contour
