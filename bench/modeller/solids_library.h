#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "modeller/body.h"
#include "modeller/booleans.h"
#include "modeller/description.h"
#include "modeller/device_package.h"
#include "modeller/exchange.h"
#include "modeller/export.h"
#include "modeller/measures.h"
#include "modeller/mesh.h"
#include "modeller/sweep.h"

/// The functions of this folder that need Open CASCADE. They are in a library of their own, which the first
/// call loads: most commands call none, and Open CASCADE takes longer to load than they take to run. A
/// function that other folders are to call has a row here, in solids_library.cpp and in solids_on_demand.cpp.
namespace vanzet::modeller {

inline constexpr const char* kSolidsLibrary = "libvanzet-solids.so";

/// The name of the library's function that returns a `const Solids*`.
inline constexpr const char* kSolidsFunction = "vanzetSolids";

// clang-format off
struct Solids {
  bool (*isStl)(const Body&);
  Result<Body> (*moveBody)(const Body&, const geometry::Vector3d&);
  Result<Body> (*scaleFacets)(const Body&, double);
  Result<Body> (*turnBody)(const Body&, const Axis&, double);
  Result<Body> (*placeBody)(const Body&, const geometry::Matrix&);
  Result<Body> (*cutBodies)(const std::vector<Body>&, const std::vector<Body>&);
  Result<Body> (*joinBodies)(const std::vector<Body>&);
  Result<Body> (*importBody)(const std::filesystem::path&, const Exchange&, const Foresight&);
  Result<Body> (*importBodyInSteps)(const std::filesystem::path&, const Exchange&, Foresight,
                                    const TakeCoarse&);
  std::vector<Result<Body>> (*importBodies)(const std::vector<std::filesystem::path>&, const Exchange&,
                                            const Foresight&);
  int (*rootsOf)(const Body&);
  Result<FileDescription> (*describeFile)(const std::filesystem::path&, const Exchange&);
  Result<DevicePackage> (*readDevicePackage)(const std::filesystem::path&, const Exchange&);
  Result<void> (*checkModel)(const PackageModel&, const std::filesystem::path&, const Exchange&);
  Result<std::vector<VrmlBody>> (*importVrml)(const std::string&, const Exchange&);
  Result<BodyFacts> (*factsOf)(const NamedBody&, ExportFormat, const MeshTolerance&);
  Result<void> (*makeFiles)(const std::vector<NamedBody>&, const std::vector<FileBodies>&, ExportFormat,
                            const FileOptions&, const Exchange&, const TakeContent&);
  Result<std::string> (*vrmlOf)(const Body&, const MeshTolerance&);
  Result<Measures> (*measuresOf)(const Body&);
  Result<geometry::Box3d> (*extents)(const Body&);
  Result<Mesh> (*meshOf)(const Body&, const MeshTolerance&);
  Result<Body> (*spin)(const geometry::Kurve&, const Axis&, double);
  Result<Body> (*extrude)(const geometry::Kurve&, double);
};
// clang-format on

}  // namespace vanzet::modeller
