#include "base/files/whole_file.h"

#include <algorithm>
#include <string>
#include <system_error>

#include "base/files/regular_file.h"
#include "base/files/system_fault.h"
#include "base/files/wide_text_windows.h"
#include "base/files/windows_api.h"

namespace vanzet::files {
namespace {

namespace fs = std::filesystem;

constexpr DWORD kPiece = 1 << 20;
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr std::wstring_view kNewMark = L".new-";
constexpr int kMostNames = 1000;

Fault CannotBeWritten(const fs::path& file, DWORD error) {
  return SystemFault("cannot be written", std::error_code(static_cast<int>(error), std::system_category()),
                     file);
}

/// The attributes of a file; 0 when it does not exist, which no file has.
DWORD AttributesOf(const fs::path& file) {
  const DWORD attributes = GetFileAttributesW(file.c_str());
  return attributes == INVALID_FILE_ATTRIBUTES ? 0 : attributes;
}

bool Write(const Handle& file, std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD count = 0;
    const auto piece = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), kPiece));
    if (WriteFile(file.get(), bytes.data(), piece, &count, nullptr) == 0) return false;
    bytes.remove_prefix(count);
  }
  return true;
}

bool SetSize(const Handle& file, std::size_t size) {
  LARGE_INTEGER end = {};
  end.QuadPart = static_cast<LONGLONG>(size);
  return SetFilePointerEx(file.get(), end, nullptr, FILE_BEGIN) != 0 && SetEndOfFile(file.get()) != 0;
}

/// Opens the file for reading and writing while others have it open, too.
Handle OpenInPlace(const fs::path& file) {
  return Handle(CreateFileW(file.c_str(), GENERIC_READ | GENERIC_WRITE, kShareAll, nullptr, OPEN_EXISTING,
                            FILE_ATTRIBUTE_NORMAL, nullptr));
}

/// Makes the bytes the content of a file that stays. The room is reserved before the first byte changes.
Result<void> WriteInPlace(const fs::path& file, std::string_view bytes) {
  const Handle opened = OpenInPlace(file);
  LARGE_INTEGER size = {};
  LARGE_INTEGER begin = {};
  const bool isWritten = opened && GetFileSizeEx(opened.get(), &size) != 0 &&
                         SetSize(opened, std::max(bytes.size(), static_cast<std::size_t>(size.QuadPart))) &&
                         SetFilePointerEx(opened.get(), begin, nullptr, FILE_BEGIN) != 0 &&
                         Write(opened, bytes) && SetSize(opened, bytes.size()) &&
                         FlushFileBuffers(opened.get()) != 0;
  return isWritten ? Result<void>() : CannotBeWritten(file, GetLastError());
}

/// A new file beside its target, under a name that no other writer has. It is deleted with the object unless
/// it has taken the target's place.
class Successor {
 public:
  explicit Successor(const fs::path& target) : target_(target) {
    const std::wstring mark = std::wstring(kNewMark) + std::to_wstring(GetCurrentProcessId()) + L'-';
    for (int i = 0; i < kMostNames; ++i) {
      name_ = target.native() + mark + std::to_wstring(i);
      const Handle made(
          CreateFileW(name_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
      error_ = made ? 0 : GetLastError();
      if (error_ != ERROR_FILE_EXISTS && error_ != ERROR_ALREADY_EXISTS) break;
    }
    if (error_ != 0) name_.clear();
  }
  ~Successor() {
    if (!name_.empty()) DeleteFileW(name_.c_str());
  }
  Successor(const Successor&) = delete;
  Successor& operator=(const Successor&) = delete;

  explicit operator bool() const { return !name_.empty(); }

  /// The reason of what failed last.
  DWORD error() const { return error_; }

  bool Fill(std::string_view bytes) {
    const Handle opened(
        CreateFileW(name_.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    return Note(opened && Write(opened, bytes) && FlushFileBuffers(opened.get()) != 0);
  }

  /// Takes the place of the target, whose attributes and access list it gets.
  bool TakePlace() {
    const bool isReplaced = AttributesOf(target_) != 0 &&
                            ReplaceFileW(target_.c_str(), name_.c_str(), nullptr, 0, nullptr, nullptr) != 0;
    if (!Note(isReplaced || (AttributesOf(target_) == 0 &&
                             MoveFileExW(name_.c_str(), target_.c_str(), MOVEFILE_WRITE_THROUGH) != 0)))
      return false;
    name_.clear();
    return true;
  }

 private:
  bool Note(bool isDone) {
    error_ = isDone ? 0 : GetLastError();
    return isDone;
  }

  const fs::path& target_;
  std::wstring name_;  ///< empty: it could not be made, or has the target's name
  DWORD error_ = 0;
};

/// True for a file that a new one cannot replace: a link, which would be lost, one with several names, or one
/// that another has open or that may not be deleted.
bool HasToStay(const fs::path& file) {
  if ((AttributesOf(file) & FILE_ATTRIBUTE_REPARSE_POINT) != 0) return true;
  const Handle opened(CreateFileW(file.c_str(), DELETE, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
  BY_HANDLE_FILE_INFORMATION information = {};
  return !opened || GetFileInformationByHandle(opened.get(), &information) == 0 ||
         information.nNumberOfLinks > 1;
}

}  // namespace

Result<void> CheckChangeableFile(const fs::path& file) {
  VANZET_DO(CheckRegularFile(file));
  if ((AttributesOf(file) & FILE_ATTRIBUTE_READONLY) != 0) {
    return Fault{.text = "is read-only", .file = Utf8Text(file.native()), .kind = FaultKind::kSystem};
  }
  const Handle opened = OpenInPlace(file);
  return opened ? Result<void>() : CannotBeWritten(file, GetLastError());
}

Result<void> ReplaceFile(const fs::path& file, std::string_view bytes, Keep keep) {
  const bool exists = AttributesOf(file) != 0;
  if (exists) VANZET_DO(CheckChangeableFile(file));
  const bool mayBeInPlace = exists && keep == Keep::kIdentity;
  if (mayBeInPlace && HasToStay(file)) return WriteInPlace(file, bytes);
  {
    Successor content(file);
    if (content && content.Fill(bytes) && content.TakePlace()) return {};
    // A full disk is one for the old file, too.
    const bool isFull = content.error() == ERROR_DISK_FULL || content.error() == ERROR_HANDLE_DISK_FULL;
    if (!mayBeInPlace || isFull) return CannotBeWritten(file, content.error());
  }
  // Its folder takes no new files, or another has opened it meanwhile.
  return WriteInPlace(file, bytes);
}

// A name does not say whether its writer still lives, on this machine or on another.
void RemoveLeftovers(const fs::path&) {}

}  // namespace vanzet::files
