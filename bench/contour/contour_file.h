#pragma once

#include "contour/dxf_reader.h"

namespace vanzet::contour {

/// Reads a file of contours: a drawing when its name ends with .dxf, in any case of letters, the library's
/// XML when it ends with .xml, else the contour text form. "-" is standard input, which holds contour text.
Result<DxfContent> ReadContourFile(const std::string& file, const DxfOptions& options);

}  // namespace vanzet::contour
