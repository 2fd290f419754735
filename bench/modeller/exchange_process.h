#pragma once

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

}  // namespace vanzet::modeller
