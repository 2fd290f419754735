#include <fstream>
#include <system_error>

#include "base/files/regular_file.h"
#include "base/files/whole_file.h"

namespace vanzet::files {
namespace {

namespace fs = std::filesystem;

bool WriteTo(const fs::path& file, std::string_view bytes) {
  std::ofstream stream(file);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  stream.close();
  return !stream.fail();
}

Fault CannotBeWritten(const fs::path& file, const std::string& reason) {
  return {.text = "cannot be written" + reason, .file = file.string(), .kind = FaultKind::kSystem};
}

}  // namespace

Result<void> CheckChangeableFile(const fs::path& file) {
  VANZET_DO(CheckRegularFile(file));
  if (std::fstream(file, std::ios::in | std::ios::out).is_open()) return {};
  return CannotBeWritten(file, "");
}

Result<void> ReplaceFile(const fs::path& file, std::string_view bytes, Keep) {
  std::error_code error;
  if (fs::exists(file, error)) VANZET_DO(CheckChangeableFile(file));
  const fs::path target = fs::weakly_canonical(file, error);
  fs::path beside = target;
  beside += ".new";
  if (!error && !WriteTo(beside, bytes)) error = std::make_error_code(std::errc::io_error);
  if (!error) fs::rename(beside, target, error);
  if (!error) return {};
  std::error_code unknown;
  fs::remove(beside, unknown);
  return CannotBeWritten(file, ": " + error.message());
}

void RemoveLeftovers(const fs::path&) {}

}  // namespace vanzet::files
