#include <BinTools.hxx>
#include <cstdlib>
#include <fstream>

#include "base/places.h"
#include "modeller/body_size.h"
#include "modeller/exchange_process.h"
#include "modeller/facets.h"
#include "modeller/foreign.h"
#include "modeller/kernel.h"
#include "modeller/parcel.h"

namespace vanzet::modeller {
namespace {

namespace fs = std::filesystem;

Result<Body> Unpack(const MemoryFile& parcel, const std::shared_ptr<const Origin>& origin) {
  return CatchKernelFailures([&]() -> Result<Body> {
    std::ifstream bytes(parcel.Path(), std::ios::binary);
    TopoDS_Shape shape;
    BinTools::Read(shape, bytes);
    if (shape.IsNull()) return Fault{"the exchange program returned no body"};
    VANZET_DO(CountFaces(shape));
    return BodyOf(shape, HasFacetsOnly(shape), origin);
  });
}

}  // namespace

Exchange Exchange::OfProcess() {
  if (const char* named = std::getenv("VANZET_EXCHANGE"); named != nullptr && *named != '\0')
    return {named, {}};
  return {ProgramFile().parent_path() / "vanzet-exchange", {}};
}

Result<Body> ImportBody(const fs::path& file, const Exchange& exchange) {
  VANZET_TRY(const auto parcel, MemoryFile::Make());
  const std::vector<std::string> arguments = {"read", std::to_string(exchange.limits.seconds),
                                              std::to_string(exchange.limits.bytes), file.string()};
  auto done = RunExchange(exchange, arguments, parcel);
  // Who watches the progress of the reading may be gone when the body is worked on.
  const auto origin = std::make_shared<const Origin>(Origin{file, {exchange.program, exchange.limits}});
  auto body = done ? Unpack(parcel, origin) : Result<Body>(done.fault());
  if (body) return body;
  return WithFile(body.fault(), file);
}

Result<std::vector<VrmlBody>> ImportVrml(const std::string& text, const Exchange& exchange) {
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
    VANZET_TRY(const auto read, UnpackParcel(answer));
    std::vector<VrmlBody> bodies;
    for (const ParcelBody& body : read) {
      VANZET_DO(CountFaces(body.shape));
      bodies.push_back({body.name, BodyOf(body.shape, true)});
    }
    return bodies;
  });
}

}  // namespace vanzet::modeller
