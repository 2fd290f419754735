#pragma once

#include <QString>
#include <optional>

#include "base/length_unit.h"
#include "geometry/point.h"

namespace vanzet::window {

/// The position that a person typed as X and Y in the unit: "-50 21", "-50; 21", "-50,5 21,25". Nothing for
/// any other text.
std::optional<geometry::Point> ReadPosition(const QString& typed, LengthUnit unit);

}  // namespace vanzet::window
