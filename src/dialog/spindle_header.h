#pragma once

#include <cstdint>
#include <string>

namespace vanzet::dialog {

/// "Main Spindle: Billet from Solid": whose record a page shows, and its title by message id.
std::string SpindleHeader(std::int32_t spindle, std::int32_t title);

}  // namespace vanzet::dialog
