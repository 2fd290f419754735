#pragma once

#include <filesystem>
#include <functional>
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
/// `onCoarse` is called when the program has answered with a coarse mesh and goes on.
///
/// Errors   the fault that the program reports, without a place; "cancelled", of the kind `kSystem`, after
///          Ctrl-C and when the receiver of the progress returns false
Result<void> RunExchange(const Exchange& exchange, const std::vector<std::string>& arguments,
                         const MemoryFile& parcel, const std::function<void()>& onCoarse = {});

}  // namespace vanzet::modeller
