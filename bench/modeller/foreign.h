#pragma once

#include <filesystem>
#include <string>

#include "base/result.h"
#include "modeller/answers.h"
#include "modeller/exchange.h"
#include "modeller/kernel.h"
#include "modeller/measures.h"
#include "modeller/mesh.h"

/// Work on the surfaces of a file's body. The surfaces are as the file has them, and a small file can keep
/// Open CASCADE busy for hours, or break it: the workbench keeps them as bytes that it never looks into, and
/// the exchange program works on them, under its limits.
namespace vanzet::modeller {

/// The surfaces of a file, and the program that read them with its limits.
struct Origin {
  std::filesystem::path file;
  Exchange exchange;
  std::string surfaces;   ///< in the binary form of Open CASCADE
  KnownFacts known = {};  ///< of the surfaces as the file has them
  int roots = 1;          ///< bodies that no assembly holds together
};

/// A body of these surfaces, where the file has them.
Body ForeignBody(Origin origin);

/// Whether the shape has the surfaces of a file.
inline bool IsForeign(const Shape& shape) {
  return shape.origin != nullptr;
}

/// These do what `MeshOf`, `Extents` and `MeasuresOf` of a body do. What is known at another place is moved
/// from there; a box only when the body keeps its axes.
///
/// Requires  IsForeign(shape)
/// Errors    a fault that begins with the name of the file
Result<Mesh> MeshOfForeign(const Shape& shape, const MeshTolerance& tolerance);
Result<geometry::Box3d> ExtentsOfForeign(const Shape& shape);
Result<Measures> MeasuresOfForeign(const Shape& shape);

}  // namespace vanzet::modeller
