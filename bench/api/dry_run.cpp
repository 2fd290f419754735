#include "api/dry_run.h"

#include <algorithm>

#include "base/files/regular_file.h"
#include "base/files/system_fault.h"
#include "base/files/whole_file.h"

namespace vanzet::api {
namespace {

namespace fs = std::filesystem;

/// The content of a file; nothing when it does not exist.
Result<std::optional<std::string>> BytesOf(const fs::path& file) {
  auto bytes = files::ReadWholeFile(file);
  if (bytes) return std::optional(std::move(*bytes));
  if (bytes.fault().kind == FaultKind::kMissing) return std::optional<std::string>();
  return bytes.fault();
}

bool HaveSameBytes(const fs::path& a, const fs::path& b) {
  const auto one = BytesOf(a), other = BytesOf(b);
  return one && other && *one == *other;
}

}  // namespace

Result<fs::path> DryRun::CopyCatalogue(const fs::path& catalogue) {
  // A folder of its own: saving a catalogue locks its folder, and that of the run is locked while it lives.
  const fs::path copies = folder_ / "catalogues";
  std::error_code error;
  fs::create_directories(copies, error);
  if (error) return files::SystemFault("cannot be created", error, copies);
  const fs::path copy = copies / (std::to_string(catalogues_.size()) + ".cld");
  VANZET_TRY(const auto bytes, BytesOf(catalogue));
  if (bytes) VANZET_DO(files::ReplaceFile(copy, *bytes));
  catalogues_.push_back({catalogue, copy});
  return copy;
}

std::optional<std::string> DryRun::Setting(std::string_view key) const {
  const auto setting = settings_.find(key);
  return setting == settings_.end() ? std::nullopt : std::optional(setting->second);
}

void DryRun::SetSetting(std::string_view key, std::string_view value, const fs::path& file) {
  settings_.insert_or_assign(std::string(key), std::string(value));
  LeaveOut(file);
}

bool DryRun::MayWrite(const fs::path& file) {
  std::error_code unknown;
  const fs::path parent = fs::weakly_canonical(file, unknown).parent_path();
  if (!unknown && parent == fs::weakly_canonical(folder_, unknown)) return true;
  LeaveOut(file);
  return false;
}

std::vector<fs::path> DryRun::LeftOut() const {
  std::vector<fs::path> all = leftOut_;
  for (const auto& [original, copy] : catalogues_) {
    if (!HaveSameBytes(original, copy)) all.push_back(original);
  }
  return all;
}

void DryRun::LeaveOut(const fs::path& file) {
  if (std::ranges::find(leftOut_, file) == leftOut_.end()) leftOut_.push_back(file);
}

}  // namespace vanzet::api
