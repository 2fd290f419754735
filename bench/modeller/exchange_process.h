#pragma once

#include <filesystem>
#include <string>

#include "base/result.h"
#include "modeller/exchange.h"

namespace vanzet::modeller {

/// A file in memory that goes with its owner.
class MemoryFile {
 public:
  static Result<MemoryFile> Make();
  ~MemoryFile();
  MemoryFile(MemoryFile&& other) noexcept;
  MemoryFile& operator=(MemoryFile&&) = delete;

  int descriptor() const { return descriptor_; }

  /// A name under which this process can open it.
  std::string Path() const;

 private:
  explicit MemoryFile(int descriptor) : descriptor_(descriptor) {}

  int descriptor_;  ///< below 0: moved away
};

/// Runs `vanzet-exchange` with these arguments; the file in memory is its descriptor 3. What it is to do and
/// to tell stands in exchange/main.cpp.
///
/// Errors   its fault, without a place; "cancelled" after Ctrl-C or when the exchange's progress gives false.
///          The program has ended in any case
Result<void> RunExchange(const Exchange& exchange, const std::vector<std::string>& arguments,
                         const MemoryFile& parcel);

/// The name of a file in a folder of its own among the system's temporary ones; the folder goes with it and
/// with all that was written there.
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
