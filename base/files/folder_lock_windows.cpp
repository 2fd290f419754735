#include "base/files/folder_lock.h"

#include <windows.h>

#include <functional>
#include <string>
#include <utility>

namespace vanzet::files {
namespace {

constexpr DWORD kLongestWait = 10000;  // milliseconds

/// A name that stands for the folder in the whole session. A mutex cannot have a path as its name.
std::wstring NameOf(const std::filesystem::path& folder) {
  std::error_code unknown;
  const std::filesystem::path whole = std::filesystem::weakly_canonical(folder, unknown);
  std::wstring text = (unknown ? folder : whole).wstring();
  CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
  return L"Local\\vanzet-folder-" + std::to_wstring(std::hash<std::wstring>()(text));
}

}  // namespace

/// A mutex of the system; one whose owner died counts as free.
Result<FolderLock> FolderLock::Acquire(const std::filesystem::path& folder) {
  const HANDLE mutex = CreateMutexW(nullptr, FALSE, NameOf(folder).c_str());
  if (mutex == nullptr) {
    return Fault{.text = "cannot be locked", .file = folder.string(), .kind = FaultKind::kSystem};
  }
  FolderLock lock(reinterpret_cast<std::intptr_t>(mutex));
  const DWORD waited = WaitForSingleObject(mutex, kLongestWait);
  if (waited == WAIT_OBJECT_0 || waited == WAIT_ABANDONED) return lock;
  CloseHandle(reinterpret_cast<HANDLE>(std::exchange(lock.handle_, -1)));
  return Fault{
      .text = "another process keeps its files locked", .file = folder.string(), .kind = FaultKind::kBusy};
}

FolderLock::~FolderLock() {
  if (handle_ < 0) return;
  const HANDLE mutex = reinterpret_cast<HANDLE>(handle_);
  ReleaseMutex(mutex);
  CloseHandle(mutex);
}

FolderLock::FolderLock(FolderLock&& other) noexcept : handle_(std::exchange(other.handle_, -1)) {}

}  // namespace vanzet::files
