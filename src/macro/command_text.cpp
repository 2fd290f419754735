#include "macro/command_text.h"

#include <array>
#include <charconv>
#include <limits>

namespace vanzet::macro {

std::string FormatReal(double value) {
  // All digits of the largest double, its sign, a point and six decimals.
  std::array<char, std::numeric_limits<double>::max_exponent10 + 10> text;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, 6);
  return {text.data(), end.ptr};
}

std::string FormatInt(std::int32_t value) {
  return std::to_string(value);
}

}  // namespace vanzet::macro
