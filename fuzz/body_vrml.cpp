#include <sstream>

#include "fuzz/contained_read.h"
#include "modeller/exchange/read_vrml.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vanzet::fuzz::ReadContained([&] {
    std::istringstream text(vanzet::fuzz::TextOf(data, size));
    return vanzet::modeller::ReadVrml(text);
  });
  return 0;
}
