#include <fstream>
#include <utility>

#include "modeller/answers.h"
#include "modeller/exchange_process.h"
#include "modeller/facets.h"
#include "modeller/foreign.h"
#include "modeller/kernel.h"
#include "modeller/plain_vrml.h"

namespace vanzet::modeller {
namespace {

namespace fs = std::filesystem;

Body FacetBody(const Mesh& mesh) {
  return BodyOf(FaceOf(mesh), true);
}

std::vector<VrmlBody> BodiesOf(const std::vector<NamedMesh>& meshes) {
  std::vector<VrmlBody> bodies;
  for (const NamedMesh& named : meshes) bodies.push_back({named.name, FacetBody(named.mesh)});
  return bodies;
}

Result<Body> Unpack(const MemoryFile& parcel, Origin origin) {
  return CatchKernelFailures([&]() -> Result<Body> {
    std::ifstream bytes(parcel.Path(), std::ios::binary);
    VANZET_TRY(auto read, UnpackReadBody(bytes));
    if (read.facets) return FacetBody(*read.facets);
    origin.surfaces = std::move(read.surfaces);
    return ForeignBody(std::move(origin));
  });
}

}  // namespace

Result<Body> ImportBody(const fs::path& file, const Exchange& exchange) {
  VANZET_TRY(const auto parcel, MemoryFile::Make());
  const std::vector<std::string> arguments = {"read", std::to_string(exchange.limits.seconds),
                                              std::to_string(exchange.limits.bytes), file.string()};
  auto done = RunExchange(exchange, arguments, parcel);
  // Who watches the progress of the reading may be gone when the body is worked on.
  const Origin origin = {file, {exchange.program, exchange.limits}, {}};
  auto body = done ? Unpack(parcel, origin) : Result<Body>(done.fault());
  if (body) return body;
  return WithFile(body.fault(), file);
}

Result<std::vector<VrmlBody>> ImportVrml(const std::string& text, const Exchange& exchange) {
  if (const auto plain = ReadPlainVrml(text)) return BodiesOf(*plain);
  VANZET_TRY(const auto parcel, MemoryFile::Make());
  std::ofstream bytes(parcel.Path(), std::ios::binary);
  bytes << text;
  bytes.close();
  if (!bytes) return Fault{.text = "out of memory", .kind = FaultKind::kSystem};
  const std::vector<std::string> arguments = {"read-vrml", std::to_string(exchange.limits.seconds),
                                              std::to_string(exchange.limits.bytes)};
  VANZET_DO(RunExchange(exchange, arguments, parcel));
  return CatchKernelFailures([&]() -> Result<std::vector<VrmlBody>> {
    std::ifstream answer(parcel.Path(), std::ios::binary);
    VANZET_TRY(const auto read, UnpackMeshes(answer));
    return BodiesOf(read);
  });
}

}  // namespace vanzet::modeller
