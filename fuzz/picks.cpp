#include "drawing/picks.h"

#include <sstream>

#include "fuzz/fuzz.h"

/// Every pick of the file can be asked for, as each kind.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using vanzet::drawing::Pick;
  std::istringstream text(vanzet::fuzz::TextOf(data, size));
  auto picks = vanzet::drawing::Picks::Read(text, "picks.txt");
  if (!picks) return 0;
  constexpr Pick::Kind kKinds[] = {Pick::Kind::kPosition, Pick::Kind::kFigure, Pick::Kind::kObject};
  for (std::size_t i = 0; i < size; ++i) static_cast<void>(picks->Next({.kind = kKinds[i % 3]}));
  return 0;
}
