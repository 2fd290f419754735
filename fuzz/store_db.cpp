#include <cstdlib>

#include "fuzz/fuzz.h"
#include "fuzz/input_file.h"
#include "project/definition.h"
#include "vdm/embedded/engine.h"

namespace {

using namespace vanzet;

/// A VDM that the engine reads is fit for a store, and can be shown.
void CheckContent(const vdm::Vdm& content) {
  for (std::size_t i = 0; i < content.Size(); ++i) {
    const auto record = content.Read(i);
    if (!record) return;
    for (std::size_t item = 0; item < (*record)->Size(); ++item) {
      if (!vdm::CheckItem((**record)[item])) std::abort();
    }
  }
  static_cast<void>(project::ReadDefinition(content));
}

}  // namespace

/// Any bytes as the file of a store: its content, or a fault.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const fuzz::InputFile file("store.db");
  vdm::SqliteEngine engine(file.Of(fuzz::TextOf(data, size)));
  const auto numbers = engine.Numbers();
  if (!numbers) return 0;
  if (const auto all = engine.Read(*numbers)) {
    for (const auto& [number, content] : *all) CheckContent(content);
  }
  for (const vdm::Number number : *numbers) {
    const auto opened = engine.Open(number);
    if (opened && *opened) CheckContent(**opened);
  }
  return 0;
}
