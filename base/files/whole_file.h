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
///
/// `FileReplacement` and `ReplaceFile` refuse what they cannot write in this way and say why.
/// `WriteWholeFile` is for the files of a shop, whose owner, other names and access lists must also stay:
/// where a new file could not keep them, it writes in place.
namespace vanzet::files {

/// True when the file, or the folder it is in, has no write permission bit at all. The kernel lets the
/// superuser write such a file; this library does not.
bool IsReadOnly(const std::filesystem::path& file);

/// True for a regular file that can be opened for reading and for writing and has a write permission bit.
bool IsChangeableFile(const std::filesystem::path& file);

class Neighbour;

/// The new content of a file, written piece by piece. Content that is not committed is deleted with this
/// object, and the old file stays.
///
/// Errors   a fault with the file's name
class FileReplacement {
 public:
  /// Fails when the file is read-only, or exists and is not a regular file.
  static Result<FileReplacement> Begin(const std::filesystem::path& file);
  ~FileReplacement();
  FileReplacement(FileReplacement&& other) noexcept;
  FileReplacement& operator=(FileReplacement&&) = delete;

  Result<void> Write(std::string_view bytes);

  /// Gives the new content the name of the file. When it returns without a fault, both are on the disk.
  Result<void> Commit();

 private:
  explicit FileReplacement(std::unique_ptr<Neighbour> content);

  Result<void> Flush();

  std::unique_ptr<Neighbour> content_;
  std::string pending_;  ///< not yet passed to the system
};

/// Makes `bytes` the content of the file, which is created when it does not exist.
/// Errors   those of `FileReplacement`
Result<void> ReplaceFile(const std::filesystem::path& file, std::string_view bytes);

/// Makes `bytes` the content of the file, which is created when it does not exist; the owner stays too.
///
/// The file is written in place when it has several names or an access list, when its owner cannot be kept,
/// and when its folder takes no new files. The room on the disk is then reserved before the first byte
/// changes.
///
/// Errors   false for a file that exists and is not changeable, one that cannot be created, and one whose
///          bytes do not fit on the disk
bool WriteWholeFile(const std::filesystem::path& file, std::string_view bytes);

}  // namespace vanzet::files
