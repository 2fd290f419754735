#include "fuzz/contained_read.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vanzet::fuzz::ReadContainedFile(".iges", data, size);
  return 0;
}
