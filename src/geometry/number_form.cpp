#include "geometry/number_form.h"

#include <charconv>

namespace geometry {

std::string General(double value, int digits) {
  char buffer[64];  // 17 digits, a sign, a point and an exponent are all there is
  const char* const end =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, digits).ptr;
  return {static_cast<const char*>(buffer), end};
}

std::string Short(double value) {
  constexpr int kDigits = 3;
  constexpr std::size_t kWidth = 6;
  std::string text = General(value, kDigits);
  if (text.size() < kWidth) text.resize(kWidth, ' ');
  return text;
}

void Put(std::FILE* stream, const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stream);
}

}  // namespace geometry
