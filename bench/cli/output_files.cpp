#include "cli/output_files.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "base/files/system_fault.h"

namespace vanzet::cli {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kNewFile = 0666;

Fault CannotBeWritten(const fs::path& file, int error) {
  return files::SystemFault("cannot be written", error, file);
}

}  // namespace

Result<void> CheckOutputFile(const fs::path& file) {
  if (file.empty()) return {};
  std::error_code unknown;
  const fs::file_status status = fs::status(file, unknown);
  if (fs::is_directory(status)) return CannotBeWritten(file, EISDIR);
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    return access(file.c_str(), W_OK) == 0 ? Result<void>() : CannotBeWritten(file, errno);
  }
  const int opened = open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, kNewFile);
  if (opened < 0) return CannotBeWritten(file, errno);
  close(opened);
  return {};
}

}  // namespace vanzet::cli
