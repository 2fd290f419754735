#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <string_view>

namespace vanzet::files {

/// An open file, closed with the object. Where a function returns false, `errno` holds the reason.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(const std::filesystem::path& file, int flags, mode_t mode = 0);
  ~Descriptor();
  Descriptor(Descriptor&& other) noexcept;
  Descriptor& operator=(Descriptor&&) = delete;

  explicit operator bool() const { return number_ >= 0; }
  int number() const { return number_; }

  /// Passes all bytes to the system.
  bool Write(std::string_view bytes) const;

  /// Returns when all that was written is on the disk.
  bool Sync() const;

 private:
  int number_;  ///< below 0: the file could not be opened, or was moved away
};

/// Puts the entries of a folder on the disk: until then a power failure can undo a rename in it.
bool SyncFolder(const std::filesystem::path& folder);

/// A file next to another one, its target, that takes the target's name when it is complete. Until then it is
/// deleted with the object. Where a function returns false, `errno` holds the reason.
class Neighbour {
 public:
  /// Opens "TARGET.new-PID", a name that says whose file it is when a killed process leaves it.
  static Neighbour OfThisProcess(std::filesystem::path target);

  /// Opens "TARGET.new-XXXXXX", a name that no other process has, here or on another machine.
  static Neighbour Unique(std::filesystem::path target);

  ~Neighbour();
  Neighbour(Neighbour&& other) noexcept;
  Neighbour& operator=(Neighbour&&) = delete;

  explicit operator bool() const { return static_cast<bool>(descriptor_); }
  const Descriptor& descriptor() const { return descriptor_; }
  const std::filesystem::path& target() const { return target_; }

  /// Puts the content on the disk and gives it the target's name.
  bool TakeNameOfTarget();

 private:
  Neighbour(std::filesystem::path target, std::string path, Descriptor descriptor);

  std::filesystem::path target_;
  std::string path_;  ///< empty: renamed, or moved away
  Descriptor descriptor_;
};

}  // namespace vanzet::files
