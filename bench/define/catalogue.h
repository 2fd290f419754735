#pragma once

#include <istream>
#include <map>
#include <optional>
#include <string>

#include "devices/device_params.h"

/// The catalogue of clamp devices, as the workbench reads and writes it: docs/formats/catalogue.md.
namespace vanzet::define {

/// The devices of a catalogue by their names; of two with the same name the first one counts.
std::map<std::string, DeviceParams> ReadShop(std::istream& catalogue);

/// A line of a catalogue that does not fit there; lines count from 1.
struct OddLine {
  int line;
  std::string text;
};

/// The first value line that does not begin with a type of the table of devices, or a last name that has no
/// value line; nothing for a sound catalogue.
std::optional<OddLine> FirstOddLine(std::istream& catalogue);

}  // namespace vanzet::define
