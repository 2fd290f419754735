#include <sstream>

#include "fuzz/contained_read.h"
#include "modeller/exchange/read_vrml.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto read = [&] {
    std::istringstream text(vanzet::fuzz::TextOf(data, size));
    return vanzet::modeller::ReadVrml(text);
  };
  vanzet::fuzz::ReadContained(read, vanzet::modeller::UnpackMeshes);
  return 0;
}
