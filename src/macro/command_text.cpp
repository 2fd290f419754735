#include "macro/command_text.h"

#include "base/number_text.h"

namespace vanzet::macro {

std::string FormatReal(double value) {
  constexpr int kDecimals = 6;
  return FixedText(value, kDecimals);
}

std::string FormatInt(std::int32_t value) {
  return std::to_string(value);
}

}  // namespace vanzet::macro
