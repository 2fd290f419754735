#include "catalogue/package_symbols.h"

#include <algorithm>
#include <cmath>

#include "base/ini.h"
#include "base/letter_case.h"
#include "base/number_text.h"
#include "base/numbers.h"
#include "base/quote.h"
#include "base/text_stream.h"
#include "catalogue/kinds.h"
#include "catalogue/maker_data.h"
#include "devices/kinds.h"

namespace vanzet::catalogue {
namespace {

using modeller::PackageItem;
using modeller::PackageProperty;

constexpr const char* kMakerSection = "maker";
constexpr const char* kDegrees = "deg";

/// A unit of packages in one of a shop.
struct UnitRow {
  std::string_view word, unit;
  double factor;
};
// clang-format off
constexpr UnitRow kUnits[] = {
    {"mm",  "mm", 1},   {"millimetre", "mm", 1},   {"cm",   "mm",  10},  {"m",     "mm",    1000},
    {"in",  "mm", 25.4}, {"inch",      "mm", 25.4}, {"kg",   "kg",  1},   {"g",     "kg",    0.001},
    {"deg", kDegrees, 1}, {"degree",   kDegrees, 1}, {"1/min", "1/min", 1}, {"rpm", "1/min", 1},
    {"1/s", "1/min", 60}, {"kN",       "kN", 1},   {"N",    "kN",  0.001}, {"bar",  "bar",   1},
    {"MPa", "bar", 10},
};
// clang-format on

const PackageProperty* Find(const PackageItem& item, std::string_view symbol) {
  const auto found = std::ranges::find_if(item.properties, [&](const PackageProperty& property) {
    return std::ranges::any_of(property.names,
                               [&](const std::string& name) { return EqualWithoutCase(name, symbol); });
  });
  return found == item.properties.end() ? nullptr : &*found;
}

/// The number of a property in a unit; a property without a unit has that one.
Result<double> NumberIn(const PackageProperty& property, std::string_view unit) {
  const std::string name = property.names.front() + ": ";
  const auto number = WholeReal(property.value);
  if (!number) return Fault{name + "expected a number, found " + Quoted(property.value)};
  if (property.unit.empty()) return *number;
  for (const UnitRow& row : kUnits) {
    if (row.unit == unit && EqualWithoutCase(row.word, property.unit)) return *number * row.factor;
  }
  return Fault{name + "its unit " + Quoted(property.unit) + " is not one of " + std::string(unit)};
}

std::string_view WithoutBlanks(std::string_view text) {
  while (!text.empty() && IsWhiteSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsWhiteSpace(text.back())) text.remove_suffix(1);
  return text;
}

/// The unit of a key of a section; null where the section does not have the key.
const char* UnitOfKey(std::string_view section, std::string_view key) {
  if (section == kMakerSection) {
    const MakerKey* const row = FindMakerKey(key);
    return row == nullptr ? nullptr : row->unit;
  }
  const char letter = key.size() == 1 ? key.front() : '\0';
  for (const std::int32_t type : TypesOfWord(section)) {
    const devices::Letter* const row = devices::FindLetter(type, letter);
    if (row != nullptr) return row->unit == devices::Unit::kMillimetre ? "mm" : kDegrees;
  }
  return nullptr;
}

}  // namespace

std::optional<PackageSymbols::Term> PackageSymbols::TermOf(std::string_view text) {
  const std::size_t sign = text.find_first_of("*/");
  const std::string_view symbol = WithoutBlanks(text.substr(0, sign));
  if (symbol.empty()) return std::nullopt;
  if (sign == std::string_view::npos) return Term{std::string(symbol)};
  const auto number = WholeReal(text.substr(sign + 1));
  if (!number || *number == 0) return std::nullopt;
  return Term{std::string(symbol), text[sign] == '/' ? 1 / *number : *number};
}

std::optional<PackageSymbols::Source> PackageSymbols::SourceOf(std::string_view text) {
  constexpr std::string_view kTo = "..";
  const std::size_t dots = text.find(kTo);
  const auto first = TermOf(text.substr(0, dots));
  if (!first) return std::nullopt;
  if (dots == std::string_view::npos) return Source{*first, std::nullopt};
  const auto last = TermOf(text.substr(dots + kTo.size()));
  if (!last) return std::nullopt;
  return Source{*first, last};
}

std::optional<std::vector<PackageSymbols::Source>> PackageSymbols::SourcesOf(std::string_view text) {
  std::vector<Source> sources;
  while (true) {
    const std::size_t comma = text.find(',');
    const auto source = SourceOf(text.substr(0, comma));
    if (!source) return std::nullopt;
    sources.push_back(*source);
    if (comma == std::string_view::npos) return sources;
    text.remove_prefix(comma + 1);
  }
}

Result<PackageSymbols> PackageSymbols::Read(const std::string& text, const std::string& file) {
  TextStream stream(text);
  IniReader reader(stream, file);
  PackageSymbols symbols;
  std::string section;
  for (IniLine line; reader.Next(line);) {
    if (line.kind == IniLine::Kind::kNothing) continue;
    if (line.kind == IniLine::Kind::kSection) {
      section = line.name;
      if (section != kMakerSection && TypesOfWord(section).empty())
        return reader.At("expected [maker] or a kind of devices, found " + Quoted(section), line.name);
      continue;
    }
    if (line.kind != IniLine::Kind::kEntry || section.empty()) return reader.At("expected 'key = symbol'");
    if (UnitOfKey(section, line.name) == nullptr)
      return reader.At("[" + section + "] does not have the key " + Quoted(line.name), line.name);
    const auto sources = SourcesOf(line.value);
    if (!sources) {
      return reader.At("expected a symbol, such as OAL, BD/2 or DMIN..DMAX, found " + Quoted(line.value),
                       line.value);
    }
    symbols.rows_.push_back({section, std::string(line.name), *sources});
  }
  return symbols;
}

void PackageSymbols::Add(const PackageSymbols& other) {
  for (const Row& row : other.rows_) {
    const auto same = std::ranges::find_if(
        rows_, [&](const Row& old) { return old.section == row.section && old.key == row.key; });
    if (same == rows_.end()) {
      rows_.push_back(row);
    } else {
      *same = row;
    }
  }
}

Result<std::optional<std::string>> PackageSymbols::TextOf(const Source& source, const PackageItem& item,
                                                          std::string_view unit) {
  constexpr int kDecimals = 8;
  std::string text;
  for (const Term* const term : {&source.first, source.last ? &*source.last : nullptr}) {
    if (term == nullptr) continue;
    const PackageProperty* const property = Find(item, term->symbol);
    if (property == nullptr) return std::optional<std::string>();
    if (unit.empty()) return std::optional(property->value);
    VANZET_TRY(const double number, NumberIn(*property, unit));
    text += (text.empty() ? "" : "..") + ShortDecimalText(number * term->factor, kDecimals);
  }
  return std::optional(text);
}

Result<std::optional<PackageValue>> PackageSymbols::ValueOf(const Row& row, const PackageItem& item,
                                                            std::string_view unit) {
  for (const Source& source : row.sources) {
    VANZET_TRY(const auto text, TextOf(source, item, unit));
    if (text) return std::optional(PackageValue{row.key, *text, source.first.symbol});
  }
  return std::optional<PackageValue>();
}

Result<PackageValues> PackageSymbols::ValuesOf(const PackageItem& item, std::int32_t type) const {
  PackageValues values;
  for (const Row& row : rows_) {
    const bool isMaker = row.section == kMakerSection;
    const auto types = TypesOfWord(row.section);
    if (!isMaker && std::ranges::find(types, type) == types.end()) continue;
    VANZET_TRY(auto value, ValueOf(row, item, UnitOfKey(row.section, row.key)));
    if (value) (isMaker ? values.figures : values.letters).push_back(std::move(*value));
  }
  return values;
}

}  // namespace vanzet::catalogue
