#include "modeller/number_text.h"

#include <string_view>

#include "base/number_text.h"

namespace vanzet::modeller {

std::string NumberText(double number) {
  constexpr int kDigits = 6;
  return GeneralText(number, kDigits);
}

void AppendDecimals(std::string& text, double number) {
  constexpr int kDecimals = 6;
  const std::string decimals = FixedText(number, kDecimals);
  std::string_view written = decimals;
  written.remove_suffix(written.size() - 1 - written.find_last_not_of('0'));
  if (written.ends_with('.')) written.remove_suffix(1);
  text += written == "-0" ? "0" : written;
}

}  // namespace vanzet::modeller
