#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace vanzet::test {

/// A folder of the test's own that goes with it.
class TemporaryFolder {
 public:
  explicit TemporaryFolder(const std::filesystem::path& below = std::filesystem::temp_directory_path());
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path operator/(std::string_view name) const { return path_ / name; }

 private:
  std::filesystem::path path_;
};

/// Where folders of tests that make very many go, so that they need not wait for a disk: in memory if the
/// system has such a place.
std::filesystem::path FolderInMemory();

/// Writes the bytes as they are, making the folders on the way.
void WriteBytes(const std::filesystem::path& file, std::string_view bytes);

/// All bytes of the file; empty when it cannot be read.
std::string ReadBytes(const std::filesystem::path& file);

}  // namespace vanzet::test
