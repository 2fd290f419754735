#include "base/files/neighbour_posix.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace vanzet::files {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kNewFile = 0666;

/// The permissions that the process takes away from new files.
mode_t MaskOfProcess() {
  const mode_t mask = umask(0);
  umask(mask);
  return mask;
}

}  // namespace

Descriptor::Descriptor(const fs::path& file, int flags, mode_t mode)
    : number_(open(file.c_str(), flags | O_CLOEXEC, mode)) {}

Descriptor::~Descriptor() {
  if (number_ >= 0) close(number_);
}

Descriptor::Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}

bool Descriptor::Write(std::string_view bytes) const {
  while (!bytes.empty()) {
    const ssize_t written = write(number_, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

bool Descriptor::Sync() const {
  return fsync(number_) == 0;
}

bool SyncFolder(const fs::path& folder) {
  const Descriptor opened(folder.empty() ? fs::path(".") : folder, O_RDONLY | O_DIRECTORY);
  return opened && opened.Sync();
}

Neighbour Neighbour::OfThisProcess(fs::path target) {
  std::string path = target.string() + ".new-" + std::to_string(getpid());
  Descriptor descriptor(path, O_WRONLY | O_CREAT | O_TRUNC, kNewFile);
  return Neighbour(std::move(target), std::move(path), std::move(descriptor));
}

Neighbour Neighbour::Unique(fs::path target) {
  std::string path = target.string() + ".new-XXXXXX";
  Descriptor descriptor(mkostemp(path.data(), O_CLOEXEC));
  Neighbour made(std::move(target), std::move(path), std::move(descriptor));
  // The system makes such a file for its owner alone.
  const bool isUsable = made && fchmod(made.descriptor_.number(), kNewFile & ~MaskOfProcess()) == 0;
  return isUsable ? std::move(made) : Neighbour(made.target_, {}, Descriptor(-1));
}

Neighbour::Neighbour(fs::path target, std::string path, Descriptor descriptor)
    : target_(std::move(target)), path_(std::move(path)), descriptor_(std::move(descriptor)) {}

Neighbour::Neighbour(Neighbour&& other) noexcept
    : target_(std::move(other.target_)),
      path_(std::exchange(other.path_, {})),
      descriptor_(std::move(other.descriptor_)) {}

Neighbour::~Neighbour() {
  if (descriptor_ && !path_.empty()) unlink(path_.c_str());
}

bool Neighbour::TakeNameOfTarget() {
  if (!descriptor_.Sync() || rename(path_.c_str(), target_.c_str()) != 0) return false;
  path_.clear();
  return true;
}

}  // namespace vanzet::files
