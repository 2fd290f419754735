#include "view/script/script.h"

#include <sstream>

#include "fuzz/fuzz.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::istringstream text(vanzet::fuzz::TextOf(data, size));
  vanzet::view::ScriptReader script(text);
  for (auto words = script.Next(); !words || !words->empty(); words = script.Next()) {
  }
  return 0;
}
