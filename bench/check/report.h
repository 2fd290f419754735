#pragma once

#include <string>
#include <vector>

#include <nlohmann/json_fwd.hpp>

#include "base/length_unit.h"
#include "base/translations.h"
#include "check/finding.h"

/// Findings for people and for programs. Source: docs/checks/README.md
namespace vanzet::check {

/// The section of the translations that holds the texts of this folder.
inline constexpr const char* kTextSection = "check";

struct Style {
  const Translations& texts;
  LengthUnit unit = LengthUnit::kMillimetre;
};

/// "main spindle"
std::string_view PlaceText(Where where, const Translations& texts);

/// The sentence of a finding, and the change that it asks for.
std::string TextOf(const Finding& finding, const Style& style);

struct Counts {
  int errors = 0, warnings = 0, notes = 0;
};
Counts CountsOf(const std::vector<Finding>& findings);

/// "Errors: 1, warnings: 0, notes: 0"
std::string CountText(const Counts& counts, const Translations& texts);

/// A line for each finding, and one with their counts.
std::string PageOf(const std::vector<Finding>& findings, const Style& style);

/// A finding of the list below.
nlohmann::ordered_json JsonOfOne(const Finding& finding, const Style& style);

/// {"findings": [...], "counts": {...}}; numbers are millimetres whatever the unit of the sentences.
nlohmann::ordered_json JsonOf(const std::vector<Finding>& findings, const Style& style);

}  // namespace vanzet::check
