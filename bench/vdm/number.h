#pragma once

#include <cstdint>
#include <string>

#include "base/result.h"

namespace vanzet::vdm {

/// The number that a VDM is known by.
enum class Number : std::uint32_t {};

/// The number that a caller gave; a fault when it is below 0 or needs more than 32 bits.
inline Result<Number> NumberFrom(std::int64_t value) {
  if (value < 0 || value > std::int64_t{UINT32_MAX}) {
    return Fault{"there is no VDM number " + std::to_string(value)};
  }
  return Number{static_cast<std::uint32_t>(value)};
}

/// "VDM 1000", as faults name it.
inline std::string NameOf(Number number) {
  return "VDM " + std::to_string(static_cast<std::uint32_t>(number));
}

}  // namespace vanzet::vdm
