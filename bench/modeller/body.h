#pragma once

#include <memory>
#include <utility>

#include "base/result.h"
#include "geometry/box.h"
#include "geometry/matrix.h"

namespace vanzet::modeller {

/// The representation of a body in Open CASCADE; its definition is in kernel.h, for this folder alone.
struct Shape;

/// A body: a solid, or whatever else was in a file. A value: copies share what never changes.
///
/// Units   millimetres
class Body {
 public:
  explicit Body(std::shared_ptr<const Shape> shape) : shape_(std::move(shape)) {}

  /// True for a body of facets, which comes from an STL file: it has triangles and no surfaces.
  bool IsStl() const;

  const Shape& shape() const { return *shape_; }

 private:
  std::shared_ptr<const Shape> shape_;
};

/// A straight line in space with a direction of any length but 0.
struct Axis {
  geometry::Point3d origin;
  geometry::Vector3d direction;
};

/// Returns the body moved by a distance, in millimetres. Fails when a number is not finite.
Result<Body> MoveBody(const Body& body, const geometry::Vector3d& by);

/// Returns the body turned by the right-hand rule. Quarter turns about a coordinate axis are exact. Fails
/// for an axis without direction and for numbers that are not finite.
Result<Body> TurnBody(const Body& body, const Axis& axis, double degrees);

/// Returns a body of facets, each coordinate times a factor above 0. Fails for a body with surfaces, whose
/// file has a unit.
Result<Body> ScaleFacets(const Body& body, double factor);

/// Returns the body under a matrix that moves and turns. Fails when the matrix scales or mirrors.
Result<Body> PlaceBody(const Body& body, const geometry::Matrix& matrix);

}  // namespace vanzet::modeller
