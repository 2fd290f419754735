#pragma once

#include <filesystem>

#include "support/temporary_folder.h"

namespace vanzet::fuzz {

/// One file for the inputs of a reader that reads files, in memory where the system has such a place. It is
/// made once and filled with each input.
class InputFile {
 public:
  explicit InputFile(const char* name) : file_(folder_ / name) {}

  /// Makes the bytes the content of the file.
  const std::filesystem::path& Of(const std::string& bytes) const {
    test::WriteBytes(file_, bytes);
    return file_;
  }

 private:
  const test::TemporaryFolder folder_{test::FolderInMemory()};
  const std::filesystem::path file_;
};

}  // namespace vanzet::fuzz
