#include <sstream>

#include "contour/contour_file.h"
#include "fuzz/fuzz.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::istringstream text(vanzet::fuzz::TextOf(data, size));
  static_cast<void>(vanzet::contour::ReadDxf(text, "drawing.dxf", {}));
  return 0;
}
