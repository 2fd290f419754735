#include "view/qt/device_words.h"

#include "view/qt/lengths.h"

namespace vanzet::view::qt {

QString UnitText(Unit unit) {
  switch (unit) {
    case Unit::kMillimetre:
      return ShownUnit() == LengthUnit::kInch ? QStringLiteral("in") : QStringLiteral("mm");
    case Unit::kDegree: return QStringLiteral("\u00B0");
    default: return {};
  }
}

const devices::Letter* FindNamedLetter(std::int32_t type, char letter) {
  const devices::Letter* const found = devices::FindLetter(type, letter);
  return found == nullptr || *found->name == '\0' ? nullptr : found;
}

}  // namespace vanzet::view::qt
