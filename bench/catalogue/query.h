#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "catalogue/shop.h"

/// A search for devices of a catalogue.
namespace vanzet::catalogue {

/// A condition on a number: "A=80", "A=70..90", "A=70..", "max_speed=..4000". Both ends belong to the range.
struct Condition {
  std::string key;  ///< a letter, or a key of maker data
  double least = 0, most = 0;
};

/// Errors   a text that is not KEY=NUMBER or KEY=NUMBER..NUMBER
Result<Condition> ConditionOf(const std::string& text);

/// The devices that are looked for: those that fit all of this.
struct Query {
  std::vector<std::int32_t> types;    ///< one of them; empty: any
  std::vector<Condition> conditions;  ///< a device without the letter or figure does not fit
  std::vector<std::string> words;     ///< each occurs in the name, the kind or the maker data, in any case
};

/// The query of a text for people: words and conditions, separated by blanks.
Query QueryOf(const std::string& text);

/// The devices that fit, in the order of the file. Valid until the catalogue changes.
std::vector<const Entry*> Search(const Shop& shop, const Query& query);

}  // namespace vanzet::catalogue
