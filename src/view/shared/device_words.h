#pragma once

#include <cstdint>

#include "devices/kinds.h"
#include "view/shared/texts.h"

namespace vanzet::view {

using devices::Unit;

/// "mm" or "in", "°", or nothing.
std::string UnitText(Unit unit);

/// The letter of a type with its name, an English text; null for a letter that the type does not have, or
/// that the pages do not name.
const devices::Letter* FindNamedLetter(std::int32_t type, char letter);

}  // namespace vanzet::view
