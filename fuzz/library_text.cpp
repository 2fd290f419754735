#include <cstdlib>

#include "contour/contour_file.h"
#include "contour/library.h"
#include "fuzz/fuzz.h"
#include "fuzz/input_file.h"

/// Contours that were read can be written in every form.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vanzet;
  static const fuzz::InputFile file("contours.txt");
  contour::UseMillimetres();
  const auto contours = contour::ReadLibraryText(file.Of(fuzz::TextOf(data, size)).string());
  if (!contours) return 0;
  if (contour::TextForm(*contours).empty() ||
      contour::LibraryTextForm(*contours, contour::LibraryText::kContour).empty()) {
    std::abort();
  }
  return 0;
}
