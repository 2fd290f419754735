#include "base/files/folder_lock.h"

#include <chrono>
#include <functional>
#include <string>
#include <utility>

#include "base/files/system_fault.h"
#include "base/files/wide_text_windows.h"
#include "base/files/windows_api.h"

namespace vanzet::files {
namespace {

constexpr DWORD kStep = 5;  // milliseconds
constexpr std::chrono::seconds kLongestWait{10};

/// A name that stands for the folder in the whole session. A mutex cannot have a path as its name.
std::wstring NameOf(const std::filesystem::path& folder) {
  std::wstring name = WholeName(folder.native());
  CharLowerBuffW(name.data(), static_cast<DWORD>(name.size()));
  return L"Local\\vanzet-folder-" + std::to_wstring(std::hash<std::wstring>()(name));
}

}  // namespace

std::filesystem::path LockedFolderOf(const std::filesystem::path& file) {
  return std::filesystem::path(WholeName(file.native())).parent_path();
}

Result<FolderLock> FolderLock::TryAcquire(const std::filesystem::path& folder) {
  const HANDLE mutex = CreateMutexW(nullptr, FALSE, NameOf(folder).c_str());
  if (mutex == nullptr) {
    const std::error_code reason(static_cast<int>(GetLastError()), std::system_category());
    return SystemFault("cannot be locked", reason, folder);
  }
  // That of a process that died counts as free.
  const DWORD waited = WaitForSingleObject(mutex, 0);
  if (waited == WAIT_OBJECT_0 || waited == WAIT_ABANDONED) {
    return FolderLock(reinterpret_cast<std::intptr_t>(mutex));
  }
  CloseHandle(mutex);
  return Fault{.text = "another process keeps its files locked",
               .file = Utf8Text(folder.native()),
               .kind = FaultKind::kBusy};
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
