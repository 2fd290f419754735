#include "view/shared/device_words.h"

#include "view/shared/lengths.h"

namespace vanzet::view {

std::string UnitText(Unit unit) {
  switch (unit) {
    case Unit::kMillimetre: return ShownUnit() == LengthUnit::kInch ? "in" : "mm";
    case Unit::kDegree: return "\u00B0";
    default: return {};
  }
}

const devices::Letter* FindNamedLetter(std::int32_t type, char letter) {
  const devices::Letter* const found = devices::FindLetter(type, letter);
  return found == nullptr || *found->name == '\0' ? nullptr : found;
}

}  // namespace vanzet::view
