#pragma once

#include <iosfwd>
#include <string>

#include "base/result.h"
#include "contour/contour.h"

/// The contour text form, docs/formats/contour.md.
namespace vanzet::contour {

/// All contours of a text. Refused with file and line: a line that is none of the form, a contour that is cut
/// short or has no span, an arc that is none, a text without a contour.
Result<Contours> ReadText(std::istream& text, const std::string& name);

/// The contours one after the other, to be read back as they are to 14 digits.
std::string TextForm(const Contours& contours);

}  // namespace vanzet::contour
