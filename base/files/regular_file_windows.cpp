#include "base/files/regular_file.h"

#include <algorithm>

#include "base/files/system_fault.h"
#include "base/files/wide_text_windows.h"
#include "base/files/windows_api.h"

namespace vanzet::files {
namespace {

namespace fs = std::filesystem;

constexpr DWORD kPiece = 1 << 16;
/// Others may do with the file what they want.
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
/// With this a folder can be opened, too.
constexpr DWORD kAlsoFolders = FILE_FLAG_BACKUP_SEMANTICS;

Fault NotRegular(const fs::path& file) {
  return {"is not a regular file", Utf8Text(file.native())};
}

Fault CannotBeRead(const fs::path& file, DWORD error) {
  Fault fault =
      SystemFault("cannot be read", std::error_code(static_cast<int>(error), std::system_category()), file);
  constexpr DWORD kMissing[] = {ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND, ERROR_INVALID_NAME,
                                ERROR_INVALID_DRIVE};
  if (std::ranges::find(kMissing, error) != std::end(kMissing)) fault.kind = FaultKind::kMissing;
  return fault;
}

Handle Open(const fs::path& file, DWORD access) {
  return Handle(CreateFileW(file.c_str(), access, kShareAll, nullptr, OPEN_EXISTING, kAlsoFolders, nullptr));
}

bool IsRegular(const Handle& file) {
  BY_HANDLE_FILE_INFORMATION information = {};
  return GetFileType(file.get()) == FILE_TYPE_DISK &&
         GetFileInformationByHandle(file.get(), &information) != 0 &&
         (information.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

}  // namespace

Result<void> CheckRegularFile(const fs::path& file) {
  // Without access nothing happens to a device.
  const Handle opened = Open(file, 0);
  return opened && !IsRegular(opened) ? Result<void>(NotRegular(file)) : Result<void>();
}

Result<std::string> ReadWholeFile(const fs::path& file, std::uintmax_t limit) {
  VANZET_DO(CheckRegularFile(file));
  const Handle opened = Open(file, GENERIC_READ);
  if (!opened) return CannotBeRead(file, GetLastError());
  if (!IsRegular(opened)) return NotRegular(file);
  std::string bytes;
  while (bytes.size() <= limit) {
    const std::size_t before = bytes.size();
    bytes.resize(before + kPiece);
    DWORD count = 0;
    if (ReadFile(opened.get(), bytes.data() + before, kPiece, &count, nullptr) == 0)
      return CannotBeRead(file, GetLastError());
    bytes.resize(before + count);
    if (count == 0) return bytes;
  }
  return Fault{"is larger than " + std::to_string(limit >> 20U) + " MiB", Utf8Text(file.native())};
}

}  // namespace vanzet::files
