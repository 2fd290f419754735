#pragma once

#include <string>

#include "base/result.h"
#include "contour/contour.h"

/// The text forms of the geometry library itself, docs/formats/geometry-text.md.
namespace vanzet::contour {

enum class LibraryText { kContour, kReport, kVertices, kSpans };

/// The contours one after the other in that form. The source-code forms call them contour1, contour2, ...
std::string LibraryTextForm(const Contours& contours, LibraryText form);

/// The contours of a file as the library reads them, which passes over what it does not know. They are
/// numbered from 1. Refused: what is no file, a contour without a span, an arc that is none.
Result<Contours> ReadLibraryText(const std::string& file);

}  // namespace vanzet::contour
