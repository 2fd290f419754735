#include "modeller/exchange/properties.h"

#include "fuzz/fuzz.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = vanzet::fuzz::TextOf(data, size);
  static_cast<void>(vanzet::modeller::ItemOfPart21(text));
  static_cast<void>(vanzet::modeller::ItemOfXml(text));
  return 0;
}
