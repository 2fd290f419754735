#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "base/result.h"

/// Reading files that may come from elsewhere, such as those of a project. Where a pipe, a device or a folder
/// has the name of a file, opening it could wait for ever and reading it never end: it is refused.
namespace vanzet::files {

/// The largest text file that is read.
inline constexpr std::uintmax_t kLargestTextFile = std::uintmax_t{16} << 20U;

/// Fails when the file exists, or a link leads to something, and it is not a regular file. For readers that
/// open the file by another library.
Result<void> CheckRegularFile(const std::filesystem::path& file);

/// Reads all bytes of a regular file.
/// Errors   a fault with the file's name: it does not exist (`kMissing`), is not a regular file, cannot be
///          read (`kSystem`), or has more bytes than the limit, which is a whole number of MiB
Result<std::string> ReadWholeFile(const std::filesystem::path& file, std::uintmax_t limit = kLargestTextFile);

}  // namespace vanzet::files
