#include "check/finding.h"

#include <algorithm>
#include <cassert>

#include "base/letter_case.h"
#include "base/translations.h"

namespace vanzet::check {
namespace {

constexpr std::string_view kSeverities[] = {Translatable("note"), Translatable("warning"),
                                            Translatable("error")};
constexpr std::string_view kPlaces[] = {"main", "sub", "center", "steady_rest", "datum"};

using enum Severity;

// clang-format off
constexpr Rule kRules[] = {
    {"EQ-101", kWarning, Translatable("Nothing holds the billet")},
    {"EQ-102", kError,   Translatable("A device has no valid outline")},
    {"EQ-103", kNote,    Translatable("A device differs from the catalogue's")},
    {"EQ-104", kWarning, Translatable("A body cannot be used, or is not closed")},
    {"EQ-105", kWarning, Translatable("The simulation data are not those of the values")},
    {"EQ-201", kError,   Translatable("A jaw cuts into the billet")},
    {"EQ-202", kWarning, Translatable("A jaw does not touch the billet")},
    {"EQ-203", kError,   Translatable("A device cuts into the billet")},
    {"EQ-204", kError,   Translatable("A device cuts into the finished part")},
    {"EQ-205", kError,   Translatable("Main and sub side cut into each other")},
    {"EQ-206", kWarning, Translatable("The center does not fit the billet")},
    {"EQ-301", kError,   Translatable("The finished part reaches out of the billet")},
    {"EQ-302", kWarning, Translatable("The clamped length is short")},
    {"EQ-303", kWarning, Translatable("The overhang is long")},
    {"EQ-304", kWarning, Translatable("The datum lies outside the billet")},
    {"EQ-305", kWarning, Translatable("The bar is too long")},
    {"EQ-401", kWarning, Translatable("The clamp diameter is out of range")},
    {"EQ-402", kError,   Translatable("Speed, force or mass is too high")},
};
// clang-format on

struct ValueKey {
  std::string_view value, key;
};
// clang-format off
constexpr ValueKey kValueKeys[] = {
    {"the bar length",                 "bar_length"},
    {"the clamp diameter",             "clamp_diameter"},
    {"the clamping out",               "clamping_out"},
    {"the front allowance",            "front_allowance"},
    {"the inner diameter",             "inner_diameter"},
    {"the job's force",                "force"},
    {"the job's speed",                "speed"},
    {"the origin of the sub spindle",  "origin"},
    {"the outer diameter",             "outer_diameter"},
    {"the rear allowance",             "rear_allowance"},
};
// clang-format on

}  // namespace

std::string_view KeyOf(const Change& change) {
  const auto* const row = std::ranges::find(kValueKeys, change.value, &ValueKey::value);
  assert(row != std::end(kValueKeys) && "each value that mends a finding has a key");
  return row->key;
}

std::string_view WordOf(Severity severity) {
  return kSeverities[static_cast<std::size_t>(severity)];
}

std::optional<Severity> SeverityNamed(std::string_view word) {
  for (const Severity severity : {kNote, kWarning, kError}) {
    if (EqualWithoutCase(WordOf(severity), word)) return severity;
  }
  return {};
}

std::string_view WordOf(Where where) {
  return kPlaces[static_cast<std::size_t>(where)];
}

std::span<const Rule> Rules() {
  return kRules;
}

const Rule* FindRule(std::string_view id) {
  const auto* const rule =
      std::ranges::find_if(kRules, [&](const Rule& each) { return EqualWithoutCase(each.id, id); });
  return rule == std::end(kRules) ? nullptr : rule;
}

}  // namespace vanzet::check
