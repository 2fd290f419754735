#pragma once

#include <filesystem>

#include "base/files/descriptor_posix.h"

namespace vanzet::files {

/// A new file in the folder of another one, its target, whose name it takes when it is complete.
///
/// Until then it has no name at all, and goes with its process however that ends. Where the system has no
/// such files it is named "TARGET.new-XXXXXX" from the start and deleted with the object; a process that is
/// killed leaves it. The open file is locked, so a name whose file nobody has locked is known to be left
/// over: `RemoveLeftovers` in whole_file.h. Where a function returns false, `errno` holds the reason.
class Neighbour {
 public:
  /// Opens a file without a name, or, where there is none, one with a name.
  static Neighbour Of(const std::filesystem::path& target);

  /// Opens a file with a name. It never existed before, and no link is followed to it.
  static Neighbour WithName(const std::filesystem::path& target);

  ~Neighbour();
  Neighbour(Neighbour&& other) noexcept;
  Neighbour& operator=(Neighbour&&) = delete;

  explicit operator bool() const { return static_cast<bool>(descriptor_); }
  const Descriptor& descriptor() const { return descriptor_; }
  const std::filesystem::path& target() const { return target_; }

  /// Puts the content on the disk and gives it the target's name.
  bool TakeNameOfTarget();

 private:
  Neighbour(std::filesystem::path target, std::filesystem::path path, Descriptor descriptor);

  bool TakeSomeName();

  std::filesystem::path target_;
  std::filesystem::path path_;  ///< empty: it has no name, has the target's, or was moved away
  Descriptor descriptor_;
};

}  // namespace vanzet::files
