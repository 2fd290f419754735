#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/length_unit.h"
#include "base/translations.h"
#include "project/definition.h"
#include "show/rows.h"

namespace vanzet::show {

/// The section of the translations that holds the texts of the page.
inline constexpr const char* kTextSection = "show";

/// How the page is written.
struct Style {
  const Translations& texts;
  std::function<std::string(double millimetres)> length;  ///< a length with its unit
};

/// A spur and its definition, of which the heads are enough.
struct Spur {
  std::int32_t number;
  std::uint32_t vdm;
  const project::Definition& definition;
  std::vector<std::string> impossible = {};  ///< sentences about values and parts that can be nowhere
};

/// The page of a spur: its devices by name and values, its parts, its datum, what is missing or impossible,
/// and whether the simulation data are those of the values. A damaged definition is shown as far as it can
/// be read.
std::string PageOf(const Spur& spur, const Style& style);

/// The same as rows, for other forms than text.
Rows RowsOf(const Spur& spur, const Style& style);

/// A length with its unit, of millimetres: "42 mm", "1.6535 inch".
std::string LengthForPeople(double millimetres, LengthUnit unit);

/// The heading of a spur that has no definition.
std::string PageWithoutDefinition(std::int32_t spur, std::uint32_t vdm, const Style& style);

}  // namespace vanzet::show
