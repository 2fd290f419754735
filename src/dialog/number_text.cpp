#include "dialog/number_text.h"

#include <algorithm>

#include "base/number_text.h"
#include "base/numbers.h"

namespace vanzet::dialog {

std::string RealText(double value) {
  constexpr int kDigits = 15;
  return GeneralText(value, kDigits);
}

std::string ShortRealText(double value) {
  constexpr int kDigits = 6;
  return GeneralText(value, kDigits);
}

std::optional<double> RealOf(std::string_view text) {
  if (std::ranges::all_of(text, IsWhiteSpace)) return 0.0;
  std::string withPoint(text);
  std::ranges::replace(withPoint, ',', '.');
  return WholeReal(withPoint);
}

}  // namespace vanzet::dialog
