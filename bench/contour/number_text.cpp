#include "contour/number_text.h"

#include <charconv>

namespace vanzet::contour {
namespace {

std::string Written(double value, std::chars_format format, int precision) {
  char buffer[400];  // a double has at most 309 digits before the point
  const char* const end = std::to_chars(buffer, buffer + sizeof buffer, value, format, precision).ptr;
  std::string text(static_cast<const char*>(buffer), end);
  if (text.starts_with('-') && text.find_first_not_of("-0.") == std::string::npos) text.erase(0, 1);
  return text;
}

}  // namespace

std::string Number(double value, int digits) {
  return Written(value, std::chars_format::general, digits);
}

std::string Fixed(double value, int decimals) {
  return Written(value, std::chars_format::fixed, decimals);
}

}  // namespace vanzet::contour
