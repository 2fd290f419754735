#include "base/files/folder_lock.h"

#include <windows.h>

#include <chrono>
#include <functional>
#include <string>
#include <utility>

namespace vanzet::files {
namespace {

constexpr DWORD kStep = 5;  // milliseconds
constexpr std::chrono::seconds kLongestWait{10};

/// A name that stands for the folder in the whole session. A mutex cannot have a path as its name.
std::wstring NameOf(const std::filesystem::path& folder) {
  std::error_code unknown;
  const std::filesystem::path whole = std::filesystem::weakly_canonical(folder, unknown);
  std::wstring text = (unknown ? folder : whole).wstring();
  CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
  return L"Local\\vanzet-folder-" + std::to_wstring(std::hash<std::wstring>()(text));
}

}  // namespace

Result<FolderLock> FolderLock::TryAcquire(const std::filesystem::path& folder) {
  const HANDLE mutex = CreateMutexW(nullptr, FALSE, NameOf(folder).c_str());
  if (mutex == nullptr) {
    return Fault{.text = "cannot be locked", .file = folder.string(), .kind = FaultKind::kSystem};
  }
  // That of a process that died counts as free.
  const DWORD waited = WaitForSingleObject(mutex, 0);
  if (waited == WAIT_OBJECT_0 || waited == WAIT_ABANDONED) {
    return FolderLock(reinterpret_cast<std::intptr_t>(mutex));
  }
  CloseHandle(mutex);
  return Fault{
      .text = "another process keeps its files locked", .file = folder.string(), .kind = FaultKind::kBusy};
}

Result<FolderLock> FolderLock::Acquire(const std::filesystem::path& folder) {
  const auto end = std::chrono::steady_clock::now() + kLongestWait;
  while (true) {
    auto lock = TryAcquire(folder);
    const bool isHeld = !lock && lock.fault().kind == FaultKind::kBusy;
    if (!isHeld || std::chrono::steady_clock::now() > end) return lock;
    Sleep(kStep);
  }
}

FolderLock::~FolderLock() {
  if (handle_ < 0) return;
  const HANDLE mutex = reinterpret_cast<HANDLE>(handle_);
  ReleaseMutex(mutex);
  CloseHandle(mutex);
}

FolderLock::FolderLock(FolderLock&& other) noexcept : handle_(std::exchange(other.handle_, -1)) {}

}  // namespace vanzet::files
