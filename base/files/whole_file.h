#pragma once

#include <filesystem>
#include <string_view>

namespace vanzet::files {

/// True for a regular file that can be opened for reading and for writing. One without any write permission
/// bit cannot, not even by the superuser: whoever took the bits away did not want that.
bool IsChangeableFile(const std::filesystem::path& file);

/// Makes `bytes` the content of the file, which is made when it is missing. Where nothing forbids it they go
/// to a file beside, which takes the name when all of them are on the disk, so that whoever is killed on the
/// way, or finds the disk full, leaves the old content. A link stays one, and permissions and owner stay.
///
/// Written in place are files that a new one could not stand for: those with several names or a list of who
/// may use them, those whose owner cannot be kept, and those in a folder that takes no new files. Their room
/// is taken before the first byte changes.
///
/// Errors   false for a file that is there and not changeable, one that cannot be made, and one whose bytes
///          do not fit on the disk
bool WriteWholeFile(const std::filesystem::path& file, std::string_view bytes);

}  // namespace vanzet::files
