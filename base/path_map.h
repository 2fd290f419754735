#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace vanzet {

/// Where a text that names a file leads on this machine. Every file access goes through it; texts of commands
/// and messages keep the path as it was.
///
///   - a backslash is a separator;
///   - "X:" stands for the root that the table of drives gives; an unlisted drive leads nowhere: nothing is
///     there, and nothing can be made there;
///   - a part that does not exist exactly is taken without regard to the case of its letters A to Z; where
///     several match, the first in the order of bytes.
class PathMap {
 public:
  /// Drive letters, in capitals, with their roots.
  using Drives = std::map<char, std::string>;

  explicit PathMap(Drives drives = {}) : drives_(std::move(drives)) {}

  /// The map of this process: its drives are told by the environment variable VANZET_DRIVES.
  static PathMap OfProcess();

  std::filesystem::path Resolve(std::string_view text) const;

  const Drives& drives() const { return drives_; }

 private:
  Drives drives_;
};

/// What a path text begins with: "X:" for a drive, "/" for a path from the root, else nothing.
std::string_view DriveOf(std::string_view path);

/// The table of drives as one text, "D:=/data;E:=/mnt/e", the form of VANZET_DRIVES.
std::string DrivesText(const PathMap::Drives& drives);

/// Reads that text; what is not of the form letter, colon, equals sign, root is passed over.
PathMap::Drives DrivesFromText(std::string_view text);

}  // namespace vanzet
