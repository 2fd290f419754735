#include "sheet/words.h"

#include "base/number_text.h"

namespace vanzet::sheet {

std::string Words::With(std::string_view english, std::string_view term) const {
  std::string text = (*this)(english);
  const auto place = text.find("%1");
  return place == std::string::npos ? text : text.replace(place, 2, term);
}

std::string Words::Measured(double millimetres) const {
  const int decimals = unit == LengthUnit::kInch ? 4 : 3;
  return ShortDecimalText(InUnit(millimetres, unit), decimals) + " " + std::string(WordOf(unit));
}

}  // namespace vanzet::sheet
