#pragma once

#include <TopoDS_Shape.hxx>

#include "modeller/kernel.h"
#include "modeller/measures.h"

namespace vanzet::test {

/// What the kernel's own check says of a body's shape.
bool IsSound(const modeller::Body& body);

/// Measures, which must be possible.
modeller::Measures Measured(const modeller::Body& body);

/// The extents as minimum x, y, z, maximum x, y, z in millimetres.
std::array<double, 6> Box(const modeller::Body& body);

/// Solids of the kernel's own making.
TopoDS_Shape Sphere(double radius);
TopoDS_Shape Torus(double radius, double tube);
TopoDS_Shape Brick(double x, double y, double z);

/// A cylinder about the line through x and y along z, between two places on it.
TopoDS_Shape CylinderAlongZ(double x, double y, double radius, double from, double to);

/// A brick of 60 by 40 by 30 with all edges rounded and a bore of radius 8 through its middle, along z.
TopoDS_Shape Casting();

/// A chuck's body as a maker models one, some hundred faces: the axis is x, the face at x = 0 with chamfered
/// edges, 90 deep, radius 100; a bore of 40, and 72 threaded holes in four rings, each countersunk.
TopoDS_Shape ChuckBody();
inline constexpr double kChuckRadius = 100, kChuckDepth = 90;

/// Two of a shape in a group, two of that group in another, and so on: 2^levels of the shape in a small file,
/// one each `step` along x.
TopoDS_Shape Doubled(const TopoDS_Shape& shape, int levels, double step);

/// A shape in a group, that group alone in another, and so on.
TopoDS_Shape Wrapped(const TopoDS_Shape& shape, int levels);

/// The shape with all its surfaces and curves turned into splines.
TopoDS_Shape AsSplines(const TopoDS_Shape& shape);

/// The part of a shape below the plane x + 2y + 3z = 1.
TopoDS_Shape CutObliquely(const TopoDS_Shape& shape);

}  // namespace vanzet::test
