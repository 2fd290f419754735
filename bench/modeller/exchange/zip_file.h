#pragma once

#include <zip.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "base/result.h"

namespace vanzet::modeller {

/// A ZIP file of somebody else, through libzip. Names of entries are never used as names of files.
///
/// Errors   a fault without a place: not a ZIP file, more than `kMostEntries` entries, an entry that is
///          encrypted, leads out of the file, cannot be unpacked, or is larger than the limits
class ZipFile {
 public:
  static constexpr std::int64_t kMostEntries = 1000;
  static constexpr std::uint64_t kMostBytes = std::uint64_t{256} << 20U;  ///< of all entries that are read

  static Result<ZipFile> Open(const std::filesystem::path& file);

  /// The names of all entries but folders, in the order of bytes.
  const std::vector<std::string>& names() const { return names_; }

  /// The content of an entry. Requires: one of `names`.
  Result<std::string> Content(const std::string& name);

 private:
  struct Discard {
    void operator()(zip_t* archive) const { zip_discard(archive); }
  };
  explicit ZipFile(zip_t* archive) : archive_(archive) {}

  Result<void> ReadNames();

  std::unique_ptr<zip_t, Discard> archive_;
  std::vector<std::string> names_;
  std::uint64_t bytesLeft_ = kMostBytes;
};

}  // namespace vanzet::modeller
