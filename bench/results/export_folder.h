#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "base/files/whole_file.h"
#include "results/export_manifest.h"

namespace vanzet::results {

/// The files that earlier exports have written to a folder: they stay, or go.
enum class Others { kKept, kRemoved };

/// The folder of an export, whose new files take their names only when all are on the disk.
///
/// Story    `Begin`, `Add` for each file, `Commit`; without `Commit` the folder is as it was
/// Owns     the new files and a new folder until they are committed
class ExportFolder {
 public:
  /// Creates the folder if it does not exist.
  /// Errors   it cannot be created; its list of exported files is damaged
  static Result<ExportFolder> Begin(const std::filesystem::path& folder);
  ~ExportFolder();
  ExportFolder(ExportFolder&& other) noexcept;
  ExportFolder& operator=(ExportFolder&&) = delete;

  Result<void> Add(const std::string& name, const std::string& content);

  /// Puts the new files in their places; files of the same names are replaced. Returns files of earlier
  /// exports that were to be removed, but that somebody has changed since: they stay.
  Result<std::vector<std::filesystem::path>> Commit(Others others);

 private:
  ExportFolder(std::filesystem::path folder, bool isNew, ExportManifest former);

  std::filesystem::path folder_;
  bool isNew_;
  ExportManifest former_, made_;
  std::vector<files::FileReplacement> files_;
};

/// The message about a file that stays.
Fault ChangedSinceExport(const std::filesystem::path& file);

}  // namespace vanzet::results
