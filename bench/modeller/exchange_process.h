#pragma once

#include <filesystem>
#include <string>

#include "base/result.h"
#include "modeller/exchange.h"

namespace vanzet::modeller {

/// Returns the fault with the name of a file.
inline Fault WithFile(Fault fault, const std::filesystem::path& file) {
  fault.file = file.string();
  return fault;
}

/// A file in memory that is freed with its owner.
class MemoryFile {
 public:
  static Result<MemoryFile> Make();
  ~MemoryFile();
  MemoryFile(MemoryFile&& other) noexcept;
  MemoryFile& operator=(MemoryFile&&) = delete;

  int descriptor() const { return descriptor_; }

  /// The name by which this process can open it.
  std::string Path() const;

 private:
  explicit MemoryFile(int descriptor) : descriptor_(descriptor) {}

  int descriptor_;  ///< below 0: moved away
};

/// Runs `vanzet-exchange` with these arguments; the file in memory becomes its descriptor 3.
/// exchange/main.cpp lists its orders, exchange/process.h its reports. The program has ended when the
/// function returns.
///
/// Errors   the fault that the program reports, without a place; "cancelled" after Ctrl-C and when the
///          receiver of the progress returns false
Result<void> RunExchange(const Exchange& exchange, const std::vector<std::string>& arguments,
                         const MemoryFile& parcel);

/// The name of a file in a temporary folder of its own; the folder is removed with all its files when the
/// object is destroyed.
class TemporaryFile {
 public:
  static Result<TemporaryFile> Make(std::string_view ending);
  ~TemporaryFile();
  TemporaryFile(TemporaryFile&& other) noexcept
      : folder_(std::move(other.folder_)), path_(std::move(other.path_)) {
    other.folder_.clear();
  }
  TemporaryFile& operator=(TemporaryFile&&) = delete;

  const std::filesystem::path& path() const { return path_; }
  Result<std::string> Content() const;

 private:
  TemporaryFile(std::filesystem::path folder, std::filesystem::path path)
      : folder_(std::move(folder)), path_(std::move(path)) {}

  std::filesystem::path folder_;  ///< empty: moved away
  std::filesystem::path path_;
};

}  // namespace vanzet::modeller
