#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "base/result.h"
#include "geometry/box.h"
#include "modeller/description.h"
#include "modeller/device_package.h"
#include "modeller/exchange.h"
#include "modeller/measures.h"
#include "modeller/mesh.h"

/// The form in which the exchange program answers what it was asked about a shape: numbers as they are in
/// memory, each list after its length.
namespace vanzet::modeller {

/// A body that was read: its triangles when it has no surfaces.
struct ReadBody {
  std::optional<Mesh> facets;
  std::string surfaces;  ///< in the binary form of Open CASCADE, into which the workbench does not look
  int roots = 1;         ///< of a body with surfaces: bodies that no assembly holds together
};

/// The facts of a body that need not be asked for again.
struct KnownFacts {
  std::optional<geometry::Box3d> box;
  std::optional<Measures> measures;
  std::optional<Mesh> mesh;  ///< with the usual tolerance, or for the time being a coarse one
};

/// The tolerance of a coarse mesh.
inline constexpr MeshTolerance kCoarse = {1, 40};

/// "extents,mesh", and back.
std::string WordOf(const Foresight& foresight);
Foresight ForesightOf(const std::string& word);

/// A face set of a VRML text.
struct NamedMesh {
  std::string name;
  Mesh mesh;
};

void Pack(const ReadBody& body, std::ostream& bytes);
void Pack(const std::vector<NamedMesh>& meshes, std::ostream& bytes);
void Pack(const Mesh& mesh, std::ostream& bytes);
void Pack(const geometry::Box3d& box, std::ostream& bytes);
void Pack(const Measures& measures, std::ostream& bytes);
void Pack(const FileDescription& description, std::ostream& bytes);
void Pack(const DevicePackage& package, std::ostream& bytes);

/// These read what `Pack` wrote, and trust nothing in it: they fail when it is incomplete, larger than a body
/// may be, or names a point that does not exist.
Result<ReadBody> UnpackReadBody(std::istream& bytes);
Result<std::vector<NamedMesh>> UnpackMeshes(std::istream& bytes);
Result<Mesh> UnpackMesh(std::istream& bytes);
Result<geometry::Box3d> UnpackBox(std::istream& bytes);
Result<Measures> UnpackMeasures(std::istream& bytes);
Result<FileDescription> UnpackDescription(std::istream& bytes);
Result<DevicePackage> UnpackPackage(std::istream& bytes);

/// Reads the facts that follow a body with surfaces, as far as they are complete. Without the usual mesh the
/// coarse one takes its place.
KnownFacts UnpackFacts(const Foresight& foresight, std::istream& bytes);

}  // namespace vanzet::modeller
