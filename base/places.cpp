#include "base/places.h"

#include <cstdlib>
#include <system_error>

namespace vanzet {

std::filesystem::path ProgramFile() {
  std::error_code unknown;
  return std::filesystem::read_symlink("/proc/self/exe", unknown);
}

std::filesystem::path ShareFolder(const std::filesystem::path& programFolder) {
  const char* const named = std::getenv("VANZET_SHARE");
  if (named != nullptr && *named != '\0') return named;
  const std::filesystem::path root = programFolder.parent_path();
  const bool isInstalledLibrary = programFolder.filename() == "vanzet" && root.filename() == "lib";
  return (isInstalledLibrary ? root.parent_path() : root) / "share" / "vanzet";
}

Places Places::OfProcess() {
  const std::filesystem::path program = ProgramFile();
  return {program, ShareFolder(program.parent_path())};
}

}  // namespace vanzet
