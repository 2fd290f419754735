#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "base/result.h"

namespace vanzet::project {

/// The entries of [project] in a project's bench.ini, read again at each call and changed while the project
/// is in use. A missing file has no entries. The workbench's own entries are none of these: they have no
/// value here and are not changed.
///
/// Errors   a fault with the file and the line; the file is then unchanged
/// Source   docs/formats/bench-ini.md
class SettingsFile {
 public:
  explicit SettingsFile(std::filesystem::path folder) : folder_(std::move(folder)) {}

  /// The value, or the empty text.
  Result<std::string> Value(std::string_view key) const;

  /// Replaces the value that counts, or adds an entry to the section; every other byte stays. Fails for a key
  /// or value that a line cannot hold, and for a key of the workbench.
  Result<void> Set(std::string_view key, std::string_view value) const;

 private:
  Result<std::string> Text() const;
  std::filesystem::path File() const { return folder_ / "bench.ini"; }

  std::filesystem::path folder_;
};

}  // namespace vanzet::project
