#include "fuzz/fuzz.h"
#include "project/message_catalogue.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static_cast<void>(vanzet::project::ReadMessageCatalogue(vanzet::fuzz::TextOf(data, size), "de.txt"));
  return 0;
}
