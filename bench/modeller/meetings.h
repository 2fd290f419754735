#pragma once

#include <optional>

#include "modeller/outline.h"

namespace vanzet::modeller {

/// Where two spans of a closed contour cross or touch, other than at the vertex between neighbours; nothing
/// when no two do.
std::optional<geometry::Point> MeetingWithItself(const Outline& outline);

}  // namespace vanzet::modeller
