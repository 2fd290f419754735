#include "dialog/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "base/numbers.h"

namespace vanzet::dialog {
namespace {

std::string WithDigits(double value, int digits) {
  // Sign, digits, point, an exponent of three digits with its sign, or zeros before small numbers.
  std::array<char, 32> text = {};
  const auto end = std::to_chars(text.begin(), text.end(), value, std::chars_format::general, digits).ptr;
  return {text.begin(), end};
}

}  // namespace

std::string RealText(double value) {
  return WithDigits(value, 15);
}

std::string ShortRealText(double value) {
  return WithDigits(value, 6);
}

std::optional<double> RealOf(std::string_view text) {
  if (std::ranges::all_of(text, IsWhiteSpace)) return 0.0;
  std::string withPoint(text);
  std::ranges::replace(withPoint, ',', '.');
  return WholeReal(withPoint);
}

}  // namespace vanzet::dialog
