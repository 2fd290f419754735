#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/bridge.h"

/// How numbers and lines are written for the host: docs/formats/macro-language.md.
namespace vanzet::macro {

/// "%f": six decimals, a point, no exponent. A negative zero keeps its sign.
std::string FormatReal(double value);

/// Plain decimal.
std::string FormatInt(std::int32_t value);

/// A part of a line: texts as they are, reals by FormatReal, integers by FormatInt.
inline std::string_view LinePart(std::string_view text) {
  return text;
}
inline std::string LinePart(double value) {
  return FormatReal(value);
}
inline std::string LinePart(std::int32_t value) {
  return FormatInt(value);
}

/// Sends one line made of its parts.
template <class... Parts>
void SendLine(const Parts&... parts) {
  std::string line;
  (line.append(LinePart(parts)), ...);
  host::SendCommand(line);
}

}  // namespace vanzet::macro
