#include "modeller/vrml_import.h"

#include <fstream>

#include "modeller/exchange_process.h"
#include "modeller/kernel.h"
#include "modeller/parcel.h"
#include "modeller/shape.h"

namespace vanzet::modeller {

Result<std::vector<VrmlBody>> ImportVrml(const std::string& text, const Exchange& exchange) {
  const auto parcel = MemoryFile::Make();
  if (!parcel) return parcel.fault();
  std::ofstream bytes(parcel->Path(), std::ios::binary);
  bytes << text;
  bytes.close();
  if (!bytes) return Fault{"there is not enough memory"};
  const std::vector<std::string> arguments = {"read-vrml", std::to_string(exchange.limits.seconds),
                                              std::to_string(exchange.limits.bytes)};
  if (const auto done = RunExchange(exchange, arguments, *parcel); !done) return done.fault();
  return Guarded([&]() -> Result<std::vector<VrmlBody>> {
    std::ifstream answer(parcel->Path(), std::ios::binary);
    const auto read = UnpackParcel(answer);
    if (!read) return read.fault();
    std::vector<VrmlBody> bodies;
    for (const ParcelBody& body : *read) bodies.push_back({body.name, BodyOf(body.shape, true)});
    return bodies;
  });
}

}  // namespace vanzet::modeller
