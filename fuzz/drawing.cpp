#include <cstdlib>
#include <sstream>

#include "contour/library.h"
#include "drawing/drawing_text.h"
#include "fuzz/fuzz.h"

/// What is read is written as it was read.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vanzet::contour::UseMillimetres();
  std::istringstream text(vanzet::fuzz::TextOf(data, size));
  const auto drawing = vanzet::drawing::ReadDrawing(text, "drawing.txt");
  if (!drawing) return 0;
  const std::string written = vanzet::drawing::DrawingText(*drawing);
  std::istringstream again(written);
  const auto read = vanzet::drawing::ReadDrawing(again, "drawing.txt");
  if (!read || vanzet::drawing::DrawingText(*read) != written) std::abort();
  return 0;
}
