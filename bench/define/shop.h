#pragma once

#include <istream>
#include <map>
#include <string>

#include "devices/device_params.h"

namespace vanzet::define {

/// The devices of a catalogue by their names; of two with the same name the first one counts.
/// Source: docs/formats/catalogue.md
std::map<std::string, DeviceParams> ReadShop(std::istream& catalogue);

}  // namespace vanzet::define
