#pragma once

#include <filesystem>

#include "base/result.h"

namespace vanzet::project {

/// A folder for the files of one run, tmp/PID in the project, so that two runs never share one. The first
/// call of `Path` creates it; the destructor removes it with its content, unless it is kept.
class RunFolder {
 public:
  explicit RunFolder(std::filesystem::path project) : project_(std::move(project)) {}
  ~RunFolder();
  RunFolder(const RunFolder&) = delete;
  RunFolder& operator=(const RunFolder&) = delete;

  Result<std::filesystem::path> Path();

  void Keep() { isKept_ = true; }

 private:
  std::filesystem::path project_;
  std::filesystem::path made_;  ///< empty: not yet
  bool isKept_ = false;
};

}  // namespace vanzet::project
