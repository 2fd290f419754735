#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "base/files/descriptor_posix.h"
#include "base/result.h"

namespace vanzet::modeller {

/// The name of a file in a temporary folder of its own; the folder is removed with all its files when the
/// object is destroyed. A process that is killed leaves its folder, and the next one that makes such a file
/// removes it: the folder of a living process is locked.
class TemporaryFile {
 public:
  /// The temporary folders of this user alone are looked at.
  static Result<TemporaryFile> Make(std::string_view ending);
  ~TemporaryFile();
  TemporaryFile(TemporaryFile&& other) noexcept;
  TemporaryFile& operator=(TemporaryFile&&) = delete;

  const std::filesystem::path& path() const { return path_; }

  /// The content of one of the files that the exchange program wrote under the path's numbered names.
  Result<std::string> Content(std::size_t number) const;

 private:
  TemporaryFile(std::filesystem::path folder, files::Descriptor lock, std::filesystem::path path);

  std::filesystem::path folder_;  ///< empty: moved away
  files::Descriptor lock_;        ///< the folder, open and locked
  std::filesystem::path path_;
};

}  // namespace vanzet::modeller
