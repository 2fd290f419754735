#include "modeller/laying.h"

#include <cstdlib>

#include "fuzz/fuzz.h"
#include "fuzz/input_file.h"

/// A laying that can be read is written so that it is read again as the same.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vanzet;
  static const fuzz::InputFile file("body.lay");
  const auto body = std::filesystem::path(file.Of(fuzz::TextOf(data, size))).replace_extension(".step");
  const auto laying = modeller::ReadLaying(body);
  if (!laying || !*laying) return 0;
  if (!modeller::WriteLaying(body, **laying)) std::abort();
  const auto again = modeller::ReadLaying(body);
  if (!again || *again != laying->value()) std::abort();
  return 0;
}
