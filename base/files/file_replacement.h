#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "base/result.h"

namespace vanzet::files {

/// Writes a file anew without ever showing half of it: the bytes go to a file beside it, which takes its name
/// when all of them are on the disk. What is not committed is removed, and the old file stays.
///
/// Errors   a fault with the file's name
class FileReplacement {
 public:
  /// Refused when the file is read-only, or is there and no regular file.
  static Result<FileReplacement> Begin(const std::filesystem::path& file);
  ~FileReplacement();
  FileReplacement(FileReplacement&& other) noexcept;
  FileReplacement& operator=(FileReplacement&&) = delete;

  Result<void> Write(std::string_view bytes);
  Result<void> Commit();

 private:
  FileReplacement(std::filesystem::path file, std::filesystem::path beside, int descriptor)
      : file_(std::move(file)), beside_(std::move(beside)), descriptor_(descriptor) {}

  Result<void> Flush();

  std::filesystem::path file_;
  std::filesystem::path beside_;  ///< empty: renamed
  int descriptor_;                ///< below 0: moved away
  std::string pending_;           ///< not yet given to the system
};

}  // namespace vanzet::files
