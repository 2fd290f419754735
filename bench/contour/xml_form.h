#pragma once

#include <iosfwd>
#include <string>

#include "base/result.h"
#include "contour/contour.h"

/// The geometry library's XML as files of contours, docs/formats/geometry-xml.md.
namespace vanzet::contour {

/// Compact contours come back; working ones tell lengths and radii, and do not.
enum class XmlKind { kKurve, kKurveEx };

std::string XmlForm(const Contours& contours, XmlKind kind);

/// The compact contours of a file. Their names are their numbers; where these are none, they are numbered
/// from 1. Refused with file and line: another element than a contour, a contour that is cut short, an arc
/// that is none, a unit that is not known.
Result<Contours> ReadXml(std::istream& bytes, const std::string& name);

}  // namespace vanzet::contour
