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

std::string WithoutSignOfZero(std::string text) {
  if (text.starts_with('-') && text.find_first_not_of("-0.") == std::string::npos) text.erase(0, 1);
  return text;
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

std::string NumberText(double value, int digits) {
  return WithoutSignOfZero(GeneralText(value, digits));
}

std::string DecimalText(double value, int decimals) {
  return WithoutSignOfZero(FixedText(value, decimals));
}

std::string ShortDecimalText(double value, int decimals) {
  std::string text = DecimalText(value, decimals);
  text.resize(text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) text.pop_back();
  return text;
}

}  // namespace vanzet
