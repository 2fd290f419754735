#include <atomic>

#include "modeller/solids_library.h"
#include "process/own_library.h"

/// The functions of this folder that need Open CASCADE, for programs that may never call one.
namespace vanzet::modeller {
namespace {

/// Loads the library at the first call. Two threads may both do it, with the same outcome.
Result<const Solids*> LoadedSolids() {
  static std::atomic<const Solids*> loaded = nullptr;
  if (const Solids* const solids = loaded) return solids;
  VANZET_TRY(const void* const found, process::LoadOwnLibrary(kSolidsLibrary, kSolidsFunction));
  const auto* const solids = static_cast<const Solids*>(found);
  loaded = solids;
  return solids;
}

template <auto function, class... Arguments>
auto Call(const Arguments&... arguments) -> decltype((Solids().*function)(arguments...)) {
  VANZET_TRY(const auto* const solids, LoadedSolids());
  return (solids->*function)(arguments...);
}

}  // namespace

// A body cannot be there before the library is.
bool Body::IsStl() const {
  const auto solids = LoadedSolids();
  return solids && (*solids)->isStl(*this);
}

Result<Body> MoveBody(const Body& body, const geometry::Vector3d& by) {
  return Call<&Solids::moveBody>(body, by);
}
Result<Body> ScaleFacets(const Body& body, double factor) {
  return Call<&Solids::scaleFacets>(body, factor);
}
Result<Body> TurnBody(const Body& body, const Axis& axis, double degrees) {
  return Call<&Solids::turnBody>(body, axis, degrees);
}
Result<Body> PlaceBody(const Body& body, const geometry::Matrix& matrix) {
  return Call<&Solids::placeBody>(body, matrix);
}
Result<Body> CutBodies(const std::vector<Body>& bodies, const std::vector<Body>& tools) {
  return Call<&Solids::cutBodies>(bodies, tools);
}
Result<Body> JoinBodies(const std::vector<Body>& bodies) {
  return Call<&Solids::joinBodies>(bodies);
}
Result<Body> ImportBody(const std::filesystem::path& file, const Exchange& exchange,
                        const Foresight& foresight) {
  return Call<&Solids::importBody>(file, exchange, foresight);
}
Result<Body> ImportBodyInSteps(const std::filesystem::path& file, const Exchange& exchange,
                               Foresight foresight, const TakeCoarse& takeCoarse) {
  return Call<&Solids::importBodyInSteps>(file, exchange, foresight, takeCoarse);
}
std::vector<Result<Body>> ImportBodies(const std::vector<std::filesystem::path>& files,
                                       const Exchange& exchange, const Foresight& foresight) {
  const auto solids = LoadedSolids();
  if (!solids) return {files.size(), solids.fault()};
  return (*solids)->importBodies(files, exchange, foresight);
}
int RootsOf(const Body& body) {
  const auto solids = LoadedSolids();
  return solids ? (*solids)->rootsOf(body) : 1;
}
Result<FileDescription> DescribeFile(const std::filesystem::path& file, const Exchange& exchange) {
  return Call<&Solids::describeFile>(file, exchange);
}
Result<DevicePackage> ReadDevicePackage(const std::filesystem::path& file, const Exchange& exchange) {
  return Call<&Solids::readDevicePackage>(file, exchange);
}
Result<void> CheckModel(const PackageModel& model, const std::filesystem::path& package,
                        const Exchange& exchange) {
  return Call<&Solids::checkModel>(model, package, exchange);
}
Result<std::vector<VrmlBody>> ImportVrml(const std::string& text, const Exchange& exchange) {
  return Call<&Solids::importVrml>(text, exchange);
}
Result<BodyFacts> FactsOf(const NamedBody& body, ExportFormat format, const MeshTolerance& tolerance) {
  return Call<&Solids::factsOf>(body, format, tolerance);
}
Result<void> MakeFiles(const std::vector<NamedBody>& bodies, const std::vector<FileBodies>& files,
                       ExportFormat format, const FileOptions& options, const Exchange& exchange,
                       const TakeContent& take) {
  return Call<&Solids::makeFiles>(bodies, files, format, options, exchange, take);
}
Result<std::string> VrmlOf(const Body& body, const MeshTolerance& tolerance) {
  return Call<&Solids::vrmlOf>(body, tolerance);
}
Result<Measures> MeasuresOf(const Body& body) {
  return Call<&Solids::measuresOf>(body);
}
Result<geometry::Box3d> Extents(const Body& body) {
  return Call<&Solids::extents>(body);
}
Result<Mesh> MeshOf(const Body& body, const MeshTolerance& tolerance) {
  return Call<&Solids::meshOf>(body, tolerance);
}
Result<Body> Spin(const geometry::Kurve& contour, const Axis& axis, double degrees) {
  return Call<&Solids::spin>(contour, axis, degrees);
}
Result<Body> Extrude(const geometry::Kurve& contour, double thickness) {
  return Call<&Solids::extrude>(contour, thickness);
}

}  // namespace vanzet::modeller
