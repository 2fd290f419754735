#include "modeller/temporary_file.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <utility>

#include "base/files/system_fault.h"
#include "modeller/parcel.h"

namespace vanzet::modeller {
namespace {

namespace fs = std::filesystem;
using files::Descriptor;

constexpr std::string_view kPrefix = "vanzet-export-";

/// Never the current folder, which may be a project: what is left there would not be found again.
fs::path TemporaryFolder() {
  std::error_code unknown;
  const fs::path named = fs::temp_directory_path(unknown);
  return unknown ? fs::path("/tmp") : named;
}

Descriptor OpenFolder(const fs::path& folder) {
  return Descriptor(folder, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
}

/// Whether an open folder belongs to this user and has not been removed.
bool IsOwnAndThere(const Descriptor& folder) {
  struct stat facts = {};
  return fstat(folder.number(), &facts) == 0 && facts.st_uid == geteuid() && facts.st_nlink > 0;
}

/// Removes the folders of processes that were killed.
void RemoveLeftFolders() {
  std::error_code unknown;
  for (fs::directory_iterator entry(TemporaryFolder(), unknown), end; !unknown && entry != end;
       entry.increment(unknown)) {
    if (!entry->path().filename().string().starts_with(kPrefix)) continue;
    const Descriptor folder = OpenFolder(entry->path());
    if (!folder || !IsOwnAndThere(folder) || !folder.TryLock()) continue;
    std::error_code ignored;
    fs::remove_all(entry->path(), ignored);
  }
}

/// Removes the files of an open folder, without opening it again: that could fail when descriptors are short.
void RemoveFiles(const Descriptor& folder) {
  DIR* const entries = fdopendir(dup(folder.number()));
  if (entries == nullptr) return;
  while (const dirent* const entry = readdir(entries)) unlinkat(folder.number(), entry->d_name, 0);
  closedir(entries);
}

}  // namespace

Result<TemporaryFile> TemporaryFile::Make(std::string_view ending) {
  RemoveLeftFolders();
  // Before a new folder is locked, another process can take it for a left one; then the next one is made.
  constexpr int kTries = 100;
  for (int i = 0; i < kTries; ++i) {
    std::string folder = (TemporaryFolder() / (std::string(kPrefix) + "XXXXXX")).string();
    if (mkdtemp(folder.data()) == nullptr) break;
    Descriptor lock = OpenFolder(folder);
    if (lock && lock.TryLock() && IsOwnAndThere(lock)) {
      return TemporaryFile(folder, std::move(lock), fs::path(folder) / ("bodies" + std::string(ending)));
    }
    rmdir(folder.c_str());
  }
  return files::SystemFault("cannot make a temporary folder", errno);
}

TemporaryFile::TemporaryFile(fs::path folder, Descriptor lock, fs::path path)
    : folder_(std::move(folder)), lock_(std::move(lock)), path_(std::move(path)) {}

TemporaryFile::TemporaryFile(TemporaryFile&& other) noexcept
    : folder_(std::exchange(other.folder_, {})),
      lock_(std::move(other.lock_)),
      path_(std::move(other.path_)) {}

TemporaryFile::~TemporaryFile() {
  if (folder_.empty()) return;
  RemoveFiles(lock_);
  rmdir(folder_.c_str());
}

Result<std::string> TemporaryFile::Content(std::size_t number) const {
  std::ifstream bytes(NumberedFile(path_, number), std::ios::binary);
  std::string content{std::istreambuf_iterator<char>(bytes), {}};
  if (bytes.bad() || content.empty()) return Fault{"the exchange program wrote nothing"};
  return content;
}

}  // namespace vanzet::modeller
