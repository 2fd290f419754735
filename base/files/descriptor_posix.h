#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string_view>

namespace vanzet::files {

/// An open file, closed with the object. Where a function returns false, `errno` holds the reason.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(const std::filesystem::path& file, int flags, mode_t mode = 0);
  ~Descriptor();
  Descriptor(Descriptor&& other) noexcept;
  Descriptor& operator=(Descriptor&& other) noexcept;

  explicit operator bool() const { return number_ >= 0; }
  int number() const { return number_; }

  /// Passes all bytes to the system.
  bool Write(std::string_view bytes) const;

  /// Makes the bytes the content of the file and puts them on the disk. The room is reserved before the first
  /// byte changes, so that a full disk leaves the old content. Requires: open for writing, not yet written.
  bool ReplaceContent(std::string_view bytes) const;

  /// Returns when all that was written is on the disk.
  bool Sync() const;

  /// Locks the file until the object goes or the process ends. False (`EWOULDBLOCK`) when another holds it.
  bool TryLock() const;

 private:
  int number_;  ///< below 0: the file could not be opened, or was moved away
};

/// Puts the entries of a folder on the disk: until then a power failure can undo a rename in it. A folder
/// that may not be read, or whose file system has no such call, counts as done.
bool SyncFolder(const std::filesystem::path& folder);

}  // namespace vanzet::files
