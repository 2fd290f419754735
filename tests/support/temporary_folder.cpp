#include "support/temporary_folder.h"

#include <stdlib.h>
#include <unistd.h>

#include <stdexcept>

namespace vanzet::test {

TemporaryFolder::TemporaryFolder(const std::filesystem::path& below) {
  std::string name = (below / "vanzet-test-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder could be made");
  path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::filesystem::path FolderInMemory() {
  const std::filesystem::path memory = "/dev/shm";
  return access(memory.c_str(), W_OK | X_OK) == 0 ? memory : std::filesystem::temp_directory_path();
}

void WriteBytes(const std::filesystem::path& file, std::string_view bytes) {
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string ReadBytes(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace vanzet::test
