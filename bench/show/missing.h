#pragma once

#include <vector>

#include "scene/equipment.h"

namespace vanzet::show {

/// The parts that the equipment of a spur lacks, as English texts to be translated. A sub spindle that holds
/// nothing lacks nothing; a part that it takes over from the main spindle has no billet of its own.
std::vector<const char*> MissingParts(const scene::Equipment& equipment);

/// True when nothing is defined.
bool IsEmpty(const scene::Equipment& equipment);

/// True when nothing is defined for the spindle but the datum.
bool IsEmpty(const scene::Spindle& spindle);

}  // namespace vanzet::show
