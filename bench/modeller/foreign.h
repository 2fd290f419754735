#pragma once

#include <filesystem>
#include <vector>

#include "base/result.h"
#include "modeller/exchange.h"
#include "modeller/kernel.h"
#include "modeller/measures.h"
#include "modeller/mesh.h"

/// Work on the surfaces of a file's body. The surfaces are as the file has them, and a small file can keep
/// Open CASCADE busy for hours: the exchange program works on them, under its limits.
namespace vanzet::modeller {

/// The file that a body was read from, and the exchange program with the limits under which it was read.
struct Origin {
  std::filesystem::path file;
  Exchange exchange;
};

/// Whether the exchange program has to work on the shape: it has surfaces, and they are those of a file.
bool IsForeign(const Shape& shape);

/// These do what `MeshOf`, `Extents` and `MeasuresOf` of a body do.
///
/// Requires  IsForeign(shape)
/// Errors    a fault that begins with the name of the file
Result<Mesh> MeshOfForeign(const Shape& shape, const MeshTolerance& tolerance);
Result<geometry::Box3d> ExtentsOfForeign(const Shape& shape);
Result<Measures> MeasuresOfForeign(const Shape& shape);

}  // namespace vanzet::modeller
