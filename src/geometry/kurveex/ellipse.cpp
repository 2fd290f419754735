#include <cmath>

#include "geometry/biarc.h"
#include "geometry/kurveex.h"

namespace geometry {

KurveEx EllipseToSpans(const Point& centre, double radiusX, double radiusY, const Matrix& m) {
  constexpr int kSteps = 37;
  constexpr double kStep = 0.17453292519943295;  // 10 degrees: the last step is the first again
  const auto tangentAt = [&](int i) {
    const double x = std::cos(i * kStep);
    const double y = std::sin(i * kStep);
    Vector2d direction(-radiusX * y, radiusY * x);
    direction.Transform(m);
    return CLine(Point(centre.x + radiusX * x, centre.y + radiusY * y).Transform(m), direction, true);
  };
  KurveEx ellipse;
  CLine from = tangentAt(0);
  ellipse.Start(from.p);
  for (int i = 1; i < kSteps; ++i) {
    const CLine to = tangentAt(i);
    Span first(from.p, to.p);
    Span second(to.p, to.p);
    Biarc(from, to, first, second);
    ellipse.Add(first, true);
    ellipse.Add(second, true);
    from = to;
  }
  return ellipse;
}

}  // namespace geometry
