#include "modeller/number_text.h"

#include <array>
#include <charconv>
#include <string_view>

namespace vanzet::modeller {

std::string NumberText(double number) {
  std::array<char, 32> digits{};
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::general, 6);
  return {digits.data(), end.ptr};
}

void AppendDecimals(std::string& text, double number) {
  std::array<char, 400> digits{};  // 309 digits before the point at most
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed, 6);
  std::string_view written(digits.data(), static_cast<std::size_t>(end.ptr - digits.data()));
  written.remove_suffix(written.size() - 1 - written.find_last_not_of('0'));
  if (written.ends_with('.')) written.remove_suffix(1);
  text += written == "-0" ? "0" : written;
}

}  // namespace vanzet::modeller
