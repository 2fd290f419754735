#pragma once

#include <filesystem>
#include <optional>

#include "base/files/folder_lock.h"
#include "base/result.h"

namespace vanzet::project {

/// A folder for the files of one run, so that two runs never share one: tmp/PID in the project, or tmp/PID-1
/// and so on. The first call of `Path` removes the litter of killed runs from the project, creates the folder
/// and locks it: others see that the run goes on. The destructor removes the folder with its content.
class RunFolder {
 public:
  explicit RunFolder(std::filesystem::path project) : project_(std::move(project)) {}
  ~RunFolder();
  RunFolder(const RunFolder&) = delete;
  RunFolder& operator=(const RunFolder&) = delete;

  Result<std::filesystem::path> Path();

  /// True for a file that goes with the folder.
  bool Holds(const std::filesystem::path& file) const {
    return !made_.empty() && !isKept_ && file.parent_path() == made_;
  }

  /// Has the folder stay after the run; it is called tmp/kept-PID. Requires: `Path` was not called.
  void Keep() { isKept_ = true; }

 private:
  std::filesystem::path project_;
  std::filesystem::path made_;  ///< empty: not yet
  std::optional<files::FolderLock> lock_;
  bool isKept_ = false;
};

}  // namespace vanzet::project
