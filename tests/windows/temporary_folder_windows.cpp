#include <windows.h>

#include <stdexcept>

#include "support/temporary_folder.h"

namespace vanzet::test {

TemporaryFolder::TemporaryFolder(const std::filesystem::path& below) {
  static int made = 0;
  const std::string mark = "vanzet-test-" + std::to_string(GetCurrentProcessId()) + "-";
  for (int tries = 0; tries < 100; ++tries) {
    path_ = below / (mark + std::to_string(++made));
    if (std::filesystem::create_directory(path_)) return;
  }
  throw std::runtime_error("no temporary folder could be made");
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

void WriteBytes(const std::filesystem::path& file, std::string_view bytes) {
  std::ofstream(file, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string ReadBytes(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace vanzet::test
