#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

/// The settings of a project that have names of their own, whichever file they are in.
/// Source: docs/formats/bench-ini.md, docs/formats/machine-ini.md
namespace vanzet::project {

/// A known setting and its new value.
struct SettingChange {
  std::string_view file;  ///< "bench.ini" or "machine.ini"
  std::string_view section;
  std::string_view key;
  std::string value;
};

/// Reads "KEY=VALUE"; the case of the key does not matter. Fails for a key that is not known, with near ones,
/// and for a value that the setting cannot have.
Result<SettingChange> ReadSettingChange(std::string_view word);

/// Writes the values into the files of a project.
Result<void> ChangeSettings(const std::filesystem::path& folder, const std::vector<SettingChange>& changes);

/// The keys, in the order of their files.
std::vector<std::string> KnownSettingKeys();

}  // namespace vanzet::project
