#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace vanzet {

/// Maps a text that names a file to a path on this machine. Every file access uses it; texts of commands and
/// messages keep the path as it was.
///
///   - a backslash is a separator;
///   - "X:" is replaced by the root in the table of drives; an unlisted drive leads nowhere: no file exists
///     there, and none can be created;
///   - a part that does not exist exactly matches without regard to the case of its letters A to Z; where
///     several match, the first in the order of bytes counts.
///
/// On Windows the system has drives, servers and names without case: an unlisted drive stays, and so does all
/// else. Bytes that are not UTF-8 are of the process's code page, and names may be of any length.
class PathMap {
 public:
  /// Drive letters, in capitals, with their roots.
  using Drives = std::map<char, std::string>;

  explicit PathMap(Drives drives = {}) : drives_(std::move(drives)) {}

  /// The map of this process, with the drives of the environment variable VANZET_DRIVES.
  static PathMap OfProcess();

  std::filesystem::path Resolve(std::string_view text) const;

  const Drives& drives() const { return drives_; }

 private:
  Drives drives_;
};

/// The beginning of a path text: "X:" for a drive, "/" for a path from the root, else nothing. On Windows
/// "\\host\share" for a path on a server, and nothing for one from the root.
std::string_view DriveOf(std::string_view path);

/// The letter of a path text that begins with a drive, in capitals.
std::optional<char> DriveLetter(std::string_view text);

/// The table of drives as one text, "D:=/data;E:=/mnt/e", the form of VANZET_DRIVES.
std::string DrivesText(const PathMap::Drives& drives);

/// Reads that text; parts that are not of the form letter, colon, equals sign, root are skipped.
PathMap::Drives DrivesFromText(std::string_view text);

}  // namespace vanzet
