#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/letter_case.h"
#include "base/result.h"

namespace vanzet::api {

/// Where a run that keeps nothing puts what it would write.
///
/// Settings    in memory: they are read back as if they had been written
/// Catalogue   a copy below the folder of the run, which takes the changes
/// Files       those in the folder of the run are written, all others are left out
class DryRun {
 public:
  /// `folder` is that of the run.
  explicit DryRun(std::filesystem::path folder) : folder_(std::move(folder)) {}

  /// Copies the catalogue, if it exists, and returns the name of the copy. A later call copies another one.
  Result<std::filesystem::path> CopyCatalogue(const std::filesystem::path& catalogue);

  const std::filesystem::path& folder() const { return folder_; }

  /// The value that the run has given a setting, or nothing.
  std::optional<std::string> Setting(std::string_view key) const;

  /// `file` is the one that would change.
  void SetSetting(std::string_view key, std::string_view value, const std::filesystem::path& file);

  /// True for a file in the folder of the run; any other one is noted as left out.
  bool MayWrite(const std::filesystem::path& file);

  /// The files that the run would have changed, besides the store and the drawing, each once.
  std::vector<std::filesystem::path> LeftOut() const;

 private:
  struct Catalogue {
    std::filesystem::path original, copy;
  };

  void LeaveOut(const std::filesystem::path& file);

  std::filesystem::path folder_;
  std::vector<Catalogue> catalogues_;
  std::map<std::string, std::string, LessWithoutCase> settings_;
  std::vector<std::filesystem::path> leftOut_;
};

}  // namespace vanzet::api
