#include "fuzz/contained_read.h"
#include "modeller/exchange/read_package.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vanzet;
  static const auto file = modeller::TemporaryFile::Make(".zip");
  if (!file) std::abort();
  std::ofstream(file->path(), std::ios::binary) << fuzz::TextOf(data, size);
  fuzz::ReadContained([&] { return modeller::ReadPackage(file->path()); }, modeller::UnpackPackage);
  return 0;
}
