#include "modeller/body.h"

#include <TopLoc_Location.hxx>
#include <cmath>
#include <gp_Trsf.hxx>

#include "geometry/numerics.h"
#include "modeller/facets.h"
#include "modeller/kernel.h"

namespace vanzet::modeller {
namespace {

using geometry::Matrix;

constexpr double kRigid = 1e-9;  // how far scales may be from 1

Body Apply(const gp_Trsf& motion, const Body& body) {
  const Shape& shape = body.shape();
  const Shape moved{shape.shape.Moved(TopLoc_Location(motion)), shape.fromStl, shape.origin, shape.meshes};
  return Body(std::make_shared<const Shape>(moved));
}

bool IsFinite(double a, double b, double c) {
  return std::isfinite(a) && std::isfinite(b) && std::isfinite(c);
}

/// Sine and cosine, exact for quarter turns.
struct Turn {
  double sine, cosine;
};
Turn TurnOf(double degrees) {
  constexpr Turn kQuarters[] = {{0, 1}, {1, 0}, {0, -1}, {-1, 0}};
  const double quarters = std::fmod(degrees, 360.0) / 90;
  if (quarters == std::floor(quarters)) return kQuarters[(static_cast<int>(quarters) + 4) % 4];
  const double radians = degrees * geometry::RADIANS_PER_DEGREE;
  return {std::sin(radians), std::cos(radians)};
}

}  // namespace

bool Body::IsStl() const {
  return shape_->fromStl;
}

Result<Body> MoveBody(const Body& body, const geometry::Vector3d& by) {
  if (!IsFinite(by.dx, by.dy, by.dz)) return Fault{"the displacement is not a finite number"};
  return CatchKernelFailures([&]() -> Result<Body> {
    gp_Trsf motion;
    motion.SetTranslation(gp_Vec(by.dx, by.dy, by.dz));
    return Apply(motion, body);
  });
}

Result<Body> ScaleFacets(const Body& body, double factor) {
  if (!body.IsStl()) return Fault{"a body with surfaces has a unit of its own"};
  return CatchKernelFailures([&]() -> Result<Body> {
    Mesh mesh = FacetsOf(body.shape().shape);
    for (geometry::Point3d& point : mesh.points) {
      point = {point.x * factor, point.y * factor, point.z * factor};
    }
    return BodyOf(FaceOf(mesh), true);
  });
}

Result<Body> TurnBody(const Body& body, const Axis& axis, double degrees) {
  const double length = axis.direction.Magnitude();
  if (!(length > 0) || !std::isfinite(length)) return Fault{"the axis has no direction"};
  const geometry::Point3d& origin = axis.origin;
  if (!IsFinite(origin.x, origin.y, origin.z) || !std::isfinite(degrees)) {
    return Fault{"the axis or the angle is not a finite number"};
  }
  const Turn turn = TurnOf(degrees);
  Matrix matrix;
  matrix.Translate(-origin.x, -origin.y, -origin.z);
  matrix.Rotate(turn.sine, turn.cosine, axis.direction * (1 / length));
  matrix.Translate(origin.x, origin.y, origin.z);
  return PlaceBody(body, matrix);
}

Result<Body> PlaceBody(const Body& body, const Matrix& matrix) {
  return CatchKernelFailures([&]() -> Result<Body> {
    const double* e = matrix.e;
    gp_Trsf motion;
    // Throws for a singular matrix; a rigid one keeps its numbers but for their last digits.
    motion.SetValues(e[0], e[1], e[2], e[3], e[4], e[5], e[6], e[7], e[8], e[9], e[10], e[11]);
    double sx = 0, sy = 0, sz = 0;
    matrix.GetScale(sx, sy, sz);
    const bool isRigid = std::abs(sx - 1) < kRigid && std::abs(sy - 1) < kRigid && std::abs(sz - 1) < kRigid;
    if (!isRigid || motion.IsNegative())
      return Fault{"a body can be moved and turned, not scaled or mirrored"};
    return Apply(motion, body);
  });
}

}  // namespace vanzet::modeller
