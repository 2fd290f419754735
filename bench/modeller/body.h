#pragma once

#include <memory>
#include <utility>

#include "base/result.h"
#include "geometry/box.h"
#include "geometry/matrix.h"

namespace vanzet::modeller {

/// What Open CASCADE knows of a body; kernel.h is for this folder alone.
struct Shape;

/// A body: a solid, or whatever else a file held. A value: copies share what is never changed.
///
/// Units   millimetres
class Body {
 public:
  explicit Body(std::shared_ptr<const Shape> shape) : shape_(std::move(shape)) {}

  /// True for a body of facets alone, which came from an STL file. It has no surfaces, only triangles.
  bool IsStl() const;

  const Shape& shape() const { return *shape_; }

 private:
  std::shared_ptr<const Shape> shape_;
};

/// A straight line in space with a direction, which need not have the length 1.
struct Axis {
  geometry::Point3d origin;
  geometry::Vector3d direction;
};

/// The body elsewhere; millimetres. Refused when a number is not finite.
Result<Body> Moved(const Body& body, const geometry::Vector3d& by);

/// The body turned by the right hand's rule. Quarter turns about an axis of coordinates leave no dust in the
/// numbers. Refused for an axis without direction and numbers that are not finite.
Result<Body> Turned(const Body& body, const Axis& axis, double degrees);

/// The body under a matrix that moves and turns. Refused when it scales or mirrors.
Result<Body> Placed(const Body& body, const geometry::Matrix& matrix);

}  // namespace vanzet::modeller
