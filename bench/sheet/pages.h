#pragma once

#include <string>

#include "base/result.h"
#include "sheet/sheet.h"

/// A sheet on paper. Text stays text, drawings stay lines.
namespace vanzet::sheet {

/// The bytes of a PDF file with all pages, and a footer with their numbers on each.
Result<std::string> PdfOf(const Sheet& sheet);

/// The first page as SVG, in millimetres.
Result<std::string> FirstPageSvgOf(const Sheet& sheet);

}  // namespace vanzet::sheet
