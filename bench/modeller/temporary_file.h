#pragma once

#include <filesystem>
#include <string>

#include "base/result.h"

namespace vanzet::modeller {

/// The name of a file in a folder of its own among the system's temporary ones; the folder goes with it and
/// with all that was written there.
class TemporaryFile {
 public:
  static Result<TemporaryFile> Make(std::string_view ending);
  ~TemporaryFile();
  TemporaryFile(TemporaryFile&& other) noexcept
      : folder_(std::move(other.folder_)), path_(std::move(other.path_)) {
    other.folder_.clear();
  }
  TemporaryFile& operator=(TemporaryFile&&) = delete;

  const std::filesystem::path& path() const { return path_; }
  Result<std::string> Content() const;

 private:
  TemporaryFile(std::filesystem::path folder, std::filesystem::path path)
      : folder_(std::move(folder)), path_(std::move(path)) {}

  std::filesystem::path folder_;  ///< empty: moved away
  std::filesystem::path path_;
};

}  // namespace vanzet::modeller
