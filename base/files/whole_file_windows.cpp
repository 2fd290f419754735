#include <fstream>
#include <system_error>

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

}  // namespace

bool IsChangeableFile(const fs::path& file) {
  std::error_code unknown;
  return fs::is_regular_file(file, unknown) && std::fstream(file, std::ios::in | std::ios::out).is_open();
}

bool WriteWholeFile(const fs::path& file, std::string_view bytes) {
  std::error_code error;
  if (fs::exists(file, error) && !IsChangeableFile(file)) return false;
  const fs::path target = fs::weakly_canonical(file, error);
  fs::path beside = target;
  beside += ".new";
  bool done = !error && WriteTo(beside, bytes);
  if (done) fs::rename(beside, target, error);
  done = done && !error;
  if (!done) fs::remove(beside, error);
  return done;
}

}  // namespace vanzet::files
