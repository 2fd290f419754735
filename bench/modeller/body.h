#pragma once

#include <memory>
#include <utility>

#include "geometry/box.h"
#include "geometry/matrix.h"

namespace vanzet::modeller {

/// What Open CASCADE knows of a body; shape.h is for this folder alone.
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

}  // namespace vanzet::modeller
