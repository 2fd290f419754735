#include <cstdlib>
#include <sstream>

#include "fuzz/fuzz.h"
#include "project/definition.h"
#include "vdm/vdm_file.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::istringstream text(vanzet::fuzz::TextOf(data, size));
  const auto content = vanzet::vdm::ReadVdm(text, "a.vdm");
  if (!content) return 0;
  // What was taken is fit for a store, and any of it can be shown as a definition.
  for (std::size_t i = 0; i < content->Size(); ++i) {
    const auto record = content->Read(i);
    if (!record) std::abort();
    for (std::size_t item = 0; item < (*record)->Size(); ++item) {
      if (!vanzet::vdm::CheckItem((**record)[item])) std::abort();
    }
  }
  static_cast<void>(vanzet::project::ReadDefinition(*content));
  return 0;
}
