#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "check/report.h"

/// Findings as SARIF, the form that pipelines and editors read from all kinds of checks.
namespace vanzet::check {

inline constexpr const char* kSarifVersion = "2.1.0";

/// The contents of a log besides its findings.
struct SarifSource {
  std::filesystem::path file;   ///< of the project, to which all findings belong
  std::filesystem::path pages;  ///< the folder with the page of each rule
  std::string version;          ///< of the program
  std::string language;         ///< of the sentences: "de"
};

/// A log with one run. Every finding is a result with the file of the project as its place and
/// "spur 0/main" as its logical place; its `properties` have what the JSON of the check has besides:
/// millimetres whatever the unit of the sentences.
nlohmann::ordered_json SarifOf(const std::vector<Finding>& findings, const Style& style,
                               const SarifSource& source);

/// The name of a file as a URI: below the folder of the process a relative one, so that a log of a checked
/// out project fits all copies of it.
std::string UriOf(const std::filesystem::path& file);

}  // namespace vanzet::check
