#pragma once

#include <string>
#include <string_view>

#include "base/length_unit.h"
#include "base/translations.h"

namespace vanzet::sheet {

/// The section of the translations that holds the texts of this folder.
inline constexpr const char* kTextSection = "sheet";

/// The language and the unit of a sheet.
struct Words {
  const Translations& texts;
  LengthUnit unit = LengthUnit::kMillimetre;

  std::string operator()(std::string_view english) const {
    return std::string(texts.Translate(kTextSection, english));
  }

  /// A text with a place for one term.
  std::string With(std::string_view english, std::string_view term) const;

  /// A length that was measured in the set-up, as the half section shows it: "42 mm".
  std::string Measured(double millimetres) const;
};

}  // namespace vanzet::sheet
