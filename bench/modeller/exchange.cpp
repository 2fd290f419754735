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

Result<Body> Unpack(std::istream& bytes, Origin origin, const Foresight& foresight) {
  return CatchKernelFailures([&]() -> Result<Body> {
    VANZET_TRY(auto read, UnpackReadBody(bytes));
    if (read.facets) return FacetBody(*read.facets);
    origin.surfaces = std::move(read.surfaces);
    origin.roots = read.roots;
    origin.known = UnpackFacts(foresight, bytes);
    return ForeignBody(std::move(origin));
  });
}

/// Who watches the progress of the reading may be gone when the body is worked on.
Origin OriginOf(const fs::path& file, const Exchange& exchange) {
  return {.file = file, .exchange = {exchange.program, exchange.limits}, .surfaces = {}};
}

/// The bodies of an answer, up to the first one that is not complete; its fault is the last.
std::vector<Result<Body>> UnpackAll(const MemoryFile& parcel, const std::vector<fs::path>& files,
                                    const Exchange& exchange, const Foresight& foresight) {
  std::ifstream bytes(parcel.Path(), std::ios::binary);
  std::vector<Result<Body>> bodies;
  for (const fs::path& file : files) {
    bodies.push_back(Unpack(bytes, OriginOf(file, exchange), foresight));
    if (!bodies.back()) break;
  }
  return bodies;
}

std::vector<std::string> OrderToRead(const std::vector<fs::path>& files, const ExchangeLimits& limits,
                                     const Foresight& foresight) {
  std::vector<std::string> arguments = {"read", std::to_string(limits.seconds), std::to_string(limits.bytes),
                                        WordOf(foresight)};
  for (const fs::path& file : files) arguments.push_back(file.string());
  return arguments;
}

}  // namespace

Result<Body> ImportBody(const fs::path& file, const Exchange& exchange, const Foresight& foresight) {
  return ImportBodies({file}, exchange, foresight).front();
}

Result<Body> ImportBodyInSteps(const fs::path& file, const Exchange& exchange, Foresight foresight,
                               const TakeCoarse& takeCoarse) {
  foresight.coarseMesh = foresight.mesh;
  VANZET_TRY(const auto parcel, MemoryFile::Make());
  const auto unpack = [&] {
    std::ifstream bytes(parcel.Path(), std::ios::binary);
    return Unpack(bytes, OriginOf(file, exchange), foresight);
  };
  const auto onCoarse = [&] {
    if (const auto body = unpack()) takeCoarse(*body);
  };
  const auto done = RunExchange(exchange, OrderToRead({file}, exchange.limits, foresight), parcel, onCoarse);
  if (!done) return WithFile(done.fault(), file);
  const auto body = unpack();
  return body ? body : WithFile(body.fault(), file);
}

std::vector<Result<Body>> ImportBodies(const std::vector<fs::path>& files, const Exchange& exchange,
                                       const Foresight& foresight) {
  const auto parcel = MemoryFile::Make();
  if (!parcel) return {files.size(), parcel.fault()};
  const auto done = RunExchange(exchange, OrderToRead(files, exchange.limits, foresight), *parcel);
  auto bodies = UnpackAll(*parcel, files, exchange, foresight);
  const bool isStopped = !done && done.fault().kind == FaultKind::kSystem;
  if (isStopped) bodies.clear();
  // The process that failed at a later file had less time and memory left for it than a file may have.
  if (bodies.size() > 1 && !bodies.back()) bodies.pop_back();
  if (bodies.size() == 1 && !bodies.back() && !done) bodies.back() = done.fault();
  for (std::size_t i = bodies.size(); i < files.size(); ++i) {
    bodies.push_back(isStopped ? done.fault() : ImportBody(files[i], exchange, foresight));
  }
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (!bodies[i] && bodies[i].fault().file.empty()) bodies[i] = WithFile(bodies[i].fault(), files[i]);
  }
  return bodies;
}

Result<std::vector<VrmlBody>> ImportVrml(const std::string& text, const Exchange& exchange) {
  if (const auto plain = ReadPlainVrml(text)) {
    return CatchKernelFailures([&]() -> Result<std::vector<VrmlBody>> { return BodiesOf(*plain); });
  }
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
