#include "base/files/regular_file.h"

#include <fstream>
#include <iterator>
#include <system_error>

namespace vanzet::files {

namespace fs = std::filesystem;

Result<void> CheckRegularFile(const fs::path& file) {
  std::error_code unknown;
  const fs::file_status status = fs::status(file, unknown);
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    return Fault{"is not a regular file", file.string()};
  }
  return {};
}

Result<std::string> ReadWholeFile(const fs::path& file, std::uintmax_t limit) {
  VANZET_DO(CheckRegularFile(file));
  std::error_code error;
  const std::uintmax_t size = fs::file_size(file, error);
  if (!error && size > limit) {
    return Fault{"is larger than " + std::to_string(limit >> 20U) + " MiB", file.string()};
  }
  std::ifstream stream(file, std::ios::binary);
  std::string bytes(std::istreambuf_iterator<char>(stream), {});
  if (!error && stream.is_open() && !stream.bad()) return bytes;
  const bool isMissing = error == std::errc::no_such_file_or_directory;
  return Fault{.text = "cannot be read",
               .file = file.string(),
               .kind = isMissing ? FaultKind::kMissing : FaultKind::kSystem};
}

}  // namespace vanzet::files
