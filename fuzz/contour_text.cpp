#include <cstdlib>
#include <sstream>

#include "contour/contour_file.h"
#include "contour/library.h"
#include "fuzz/fuzz.h"

/// Contours in the text form of the workbench. What is read is written, and is read again.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vanzet;
  contour::UseMillimetres();
  std::istringstream text(fuzz::TextOf(data, size));
  const auto contours = contour::ReadText(text, "contours.txt");
  if (!contours) return 0;
  std::istringstream written(contour::TextForm(*contours));
  static_cast<void>(contour::ReadText(written, "written.txt"));
  return 0;
}
