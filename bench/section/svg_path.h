#pragma once

#include <string>
#include <string_view>

#include "geometry/region.h"

/// Regions as paths of SVG, in the coordinates of the section.
namespace vanzet::section {

std::string SvgNumber(double value);
std::string SvgPoint(const geometry::Point& point);

/// " name=\"value\"", with a blank before it.
std::string SvgAttribute(std::string_view name, const std::string& value);

/// Closed loops, to be filled.
std::string SvgArea(const geometry::Region& region);

/// The outline without the axis, which bounds no body.
std::string SvgOutline(const geometry::Region& region);

}  // namespace vanzet::section
