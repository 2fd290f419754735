#include "base/files/regular_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "base/files/descriptor_posix.h"
#include "base/files/system_fault.h"

namespace vanzet::files {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kPiece = 1 << 16;

Fault NotRegular(const fs::path& file) {
  return {"is not a regular file", file.string()};
}

Fault CannotBeRead(const fs::path& file, int error) {
  Fault fault = SystemFault("cannot be read", error, file);
  if (error == ENOENT || error == ENOTDIR) fault.kind = FaultKind::kMissing;
  return fault;
}

/// Looks before it opens, since opening alone does something to some devices, and again at what it opened.
Result<Descriptor> OpenRegular(const fs::path& file) {
  VANZET_DO(CheckRegularFile(file));
  Descriptor opened(file, O_RDONLY | O_NONBLOCK | O_NOCTTY);
  if (!opened) return CannotBeRead(file, errno);
  struct stat status = {};
  if (fstat(opened.number(), &status) != 0) return CannotBeRead(file, errno);
  if (!S_ISREG(status.st_mode)) return NotRegular(file);
  return opened;
}

}  // namespace

Result<void> CheckRegularFile(const fs::path& file) {
  struct stat status = {};
  if (stat(file.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) return NotRegular(file);
  return {};
}

Result<std::string> ReadWholeFile(const fs::path& file, std::uintmax_t limit) {
  VANZET_TRY(const auto opened, OpenRegular(file));
  std::string bytes;
  // The size is a hint: the file may grow or shrink while it is read.
  struct stat status = {};
  if (fstat(opened.number(), &status) == 0)
    bytes.reserve(std::min(static_cast<std::uintmax_t>(status.st_size), limit) + kPiece);
  while (bytes.size() <= limit) {
    const std::size_t before = bytes.size();
    bytes.resize(before + kPiece);
    const ssize_t count = read(opened.number(), bytes.data() + before, kPiece);
    bytes.resize(before + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    if (count == 0) return bytes;
    if (count < 0 && errno != EINTR) return CannotBeRead(file, errno);
  }
  return Fault{"is larger than " + std::to_string(limit >> 20U) + " MiB", file.string()};
}

}  // namespace vanzet::files
