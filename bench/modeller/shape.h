#pragma once

#include <TopoDS_Shape.hxx>
#include <memory>

#include "modeller/body.h"

/// Open CASCADE's view of a body. Nothing outside of this folder includes this header.
namespace vanzet::modeller {

/// A body of facets is a face without a surface that carries its triangles, or several of them.
struct Shape {
  TopoDS_Shape shape;
  bool fromStl = false;
};

inline Body BodyOf(const TopoDS_Shape& shape, bool fromStl = false) {
  return Body(std::make_shared<const Shape>(Shape{shape, fromStl}));
}

}  // namespace vanzet::modeller
