#include "project/run_folder.h"

#include <unistd.h>

#include <system_error>

namespace vanzet::project {

RunFolder::~RunFolder() {
  std::error_code ignored;
  if (!made_.empty() && !isKept_) std::filesystem::remove_all(made_, ignored);
}

Result<std::filesystem::path> RunFolder::Path() {
  if (!made_.empty()) return made_;
  const std::filesystem::path folder = project_ / "tmp" / std::to_string(getpid());
  std::error_code error;
  // What a process of the same number left behind when it died is nobody's any more.
  std::filesystem::remove_all(folder, error);
  if (!error) std::filesystem::create_directories(folder, error);
  if (error) return Fault{"cannot be made: " + error.message(), folder.string()};
  made_ = folder;
  return made_;
}

}  // namespace vanzet::project
