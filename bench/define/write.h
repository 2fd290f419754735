#pragma once

#include <cstdint>

#include "define/json.h"
#include "scene/equipment.h"

namespace vanzet::define {

/// The equipment of a spur in the JSON form: docs/formats/definition-json.md. What the form cannot express,
/// such as a device of an unknown type, is left out and added to `leftOut` with its path below `path`.
Json SpurForm(std::int32_t spur, const scene::Equipment& equipment, const std::string& path,
              Refusals& leftOut);

}  // namespace vanzet::define
