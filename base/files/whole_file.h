#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "base/result.h"

/// Files that are written whole: the new content goes to a file in the same folder, which takes the name of
/// the old one when all bytes are on the disk. A reader never sees half a file, and a writer that is killed
/// or finds the disk full leaves the old content. A link stays a link: the file that it leads to is replaced.
/// The permissions of the old file stay.
namespace vanzet::files {

/// The parts of an old file that stay, besides its permissions.
enum class Keep {
  /// Nothing: a new file always takes its place.
  kPermissions,
  /// Its owner, its other names, and its access list: it is the file of a shop. It is written in place where
  /// a new file could not have these, and where its folder takes no new files. The room on the disk is then
  /// reserved before the first byte changes.
  kIdentity,
};

/// True when the file, or the folder it is in, has no write permission bit at all. The kernel lets the
/// superuser write such a file; this library does not.
bool IsReadOnly(const std::filesystem::path& file);

/// Fails for a file that is not a regular one, has no write permission bit, or cannot be opened for reading
/// and writing.
Result<void> CheckChangeableFile(const std::filesystem::path& file);

class Descriptor;
class Neighbour;

/// The new content of a file, written piece by piece. Content that is not committed is deleted with this
/// object, and the old file stays.
///
/// Errors   a fault with the file's name and the reason
class FileReplacement {
 public:
  /// Fails when the file is read-only, or exists and is not a regular file.
  static Result<FileReplacement> Begin(const std::filesystem::path& file, Keep keep = Keep::kPermissions);
  ~FileReplacement();
  FileReplacement(FileReplacement&& other) noexcept;
  FileReplacement& operator=(FileReplacement&&) = delete;

  Result<void> Write(std::string_view bytes);

  /// Puts on the disk what was written, so that `Commit` cannot run out of room. Without an effect where the
  /// old file is written in place.
  Result<void> Prepare();

  /// Gives the new content the name of the file. When it returns without a fault, both are on the disk.
  Result<void> Commit();

 private:
  FileReplacement(std::filesystem::path file, std::unique_ptr<Neighbour> content);
  FileReplacement(std::filesystem::path file, Descriptor old);

  Result<void> Flush();

  std::filesystem::path file_;
  std::unique_ptr<Neighbour> content_;  ///< null: the old file is written in place at the end
  std::unique_ptr<Descriptor> old_;
  std::string pending_;  ///< not yet passed to the system
};

/// Makes `bytes` the content of the file, which is created when it does not exist.
/// Errors   those of `FileReplacement`
Result<void> ReplaceFile(const std::filesystem::path& file, std::string_view bytes,
                         Keep keep = Keep::kPermissions);

/// Deletes the new files that killed writers left in the folder. One that cannot be deleted stays.
void RemoveLeftovers(const std::filesystem::path& folder);

}  // namespace vanzet::files
