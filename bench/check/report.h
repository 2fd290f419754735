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

/// The sentence of a finding, and the change that it asks for.
std::string TextOf(const Finding& finding, const Style& style);

struct Counts {
  int errors = 0, warnings = 0, notes = 0;
};
Counts CountsOf(const std::vector<Finding>& findings);

/// A line for each finding, and one with their counts.
std::string PageOf(const std::vector<Finding>& findings, const Style& style);

/// {"findings": [...], "counts": {...}}; numbers are millimetres whatever the unit of the sentences.
nlohmann::ordered_json JsonOf(const std::vector<Finding>& findings, const Style& style);

}  // namespace vanzet::check
