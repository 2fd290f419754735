#pragma once

#include <cstdint>

#include "base/length_unit.h"
#include "define/json.h"
#include "scene/equipment.h"

namespace vanzet::define {

/// The equipment of a spur in the JSON form: docs/formats/definition-json.md. What the form cannot express,
/// such as a device of an unknown type, is left out and added to `leftOut` with its path below `path`.
/// Lengths are in that unit; inches have eight decimals, so that the same six decimals of a millimetre
/// return.
Json SpurForm(std::int32_t spur, const scene::Equipment& equipment, const std::string& path,
              Refusals& leftOut, LengthUnit unit = LengthUnit::kMillimetre);

/// A whole form of such spurs.
Json WholeForm(Json spurs, LengthUnit unit = LengthUnit::kMillimetre);

}  // namespace vanzet::define
