#include "base/translations.h"
#include "fuzz/fuzz.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static_cast<void>(vanzet::Translations::Read(vanzet::fuzz::TextOf(data, size), "texts.de.txt"));
  return 0;
}
