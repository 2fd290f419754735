#include "project/run_folder.h"

#include <unistd.h>

#include <system_error>

#include "base/files/system_fault.h"

namespace vanzet::project {

RunFolder::~RunFolder() {
  std::error_code ignored;
  if (!made_.empty() && !isKept_) std::filesystem::remove_all(made_, ignored);
}

Result<std::filesystem::path> RunFolder::Path() {
  if (!made_.empty()) return made_;
  const std::filesystem::path folder = project_ / "tmp" / std::to_string(getpid());
  std::error_code error;
  // A killed process of the same number may have left its folder.
  std::filesystem::remove_all(folder, error);
  if (!error) std::filesystem::create_directories(folder, error);
  if (error) return files::SystemFault("cannot be created", error, folder);
  made_ = folder;
  return made_;
}

}  // namespace vanzet::project
