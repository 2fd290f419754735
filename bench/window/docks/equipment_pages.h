#pragma once

#include <cstdint>
#include <string>

#include "scene/equipment.h"
#include "scene/scene.h"
#include "show/rows.h"

namespace vanzet::window {

/// The node of the dialog's page on which the part of a row is defined; 0 where no page does.
std::int32_t NodeOf(const show::Row& row, const scene::Equipment& equipment);

/// The same of a part of a side: 0 the main spindle's, 1 the sub spindle's.
std::int32_t NodeOfPart(show::Part part, std::size_t side, const scene::Equipment& equipment);

/// The same of a body of the equipment.
std::int32_t NodeOf(const scene::SceneBody& body, const scene::Equipment& equipment);

/// The name of the device of the catalogue that a row is about; empty: none.
std::string DeviceOf(const show::Row& row, const scene::Equipment& equipment);

}  // namespace vanzet::window
