#include "base/number_text.h"

#include <array>
#include <charconv>
#include <limits>

namespace vanzet {
namespace {

// All digits of the largest double before a point, its sign, and more decimals than anybody asks for.
constexpr std::size_t kLongestNumber = std::numeric_limits<double>::max_exponent10 + 64;

template <class... Form>
std::string Written(double value, Form... form) {
  std::array<char, kLongestNumber> text;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value, form...);
  return {text.data(), end.ptr};
}

}  // namespace

std::string FixedText(double value, int decimals) {
  return Written(value, std::chars_format::fixed, decimals);
}

std::string GeneralText(double value, int digits) {
  return Written(value, std::chars_format::general, digits);
}

std::string ExactText(double value) {
  return Written(value);
}

}  // namespace vanzet
