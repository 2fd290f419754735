#include "results/export_folder.h"

#include <utility>

namespace vanzet::results {

namespace fs = std::filesystem;

ExportFolder::ExportFolder(fs::path folder, bool isNew, ExportManifest former)
    : folder_(std::move(folder)), isNew_(isNew), former_(std::move(former)) {}

ExportFolder::ExportFolder(ExportFolder&& other) noexcept
    : folder_(std::move(other.folder_)),
      isNew_(std::exchange(other.isNew_, false)),
      former_(std::move(other.former_)),
      made_(std::move(other.made_)),
      files_(std::move(other.files_)) {}

ExportFolder::~ExportFolder() {
  files_.clear();
  std::error_code isInUse;
  if (isNew_) fs::remove(folder_, isInUse);
}

Result<ExportFolder> ExportFolder::Begin(const fs::path& folder) {
  VANZET_TRY(auto former, ExportManifest::Read(folder));
  std::error_code error;
  const bool isNew = fs::create_directories(folder, error);
  if (fs::is_directory(folder, error)) return ExportFolder(folder, isNew, std::move(former));
  return Fault{.text = "the folder cannot be created", .file = folder.string(), .kind = FaultKind::kSystem};
}

Result<void> ExportFolder::Add(const std::string& name, const std::string& content) {
  VANZET_TRY(auto file, files::FileReplacement::Begin(folder_ / name));
  VANZET_DO(file.Write(content));
  VANZET_DO(file.Prepare());
  files_.push_back(std::move(file));
  made_.Add(name, content);
  return {};
}

Result<std::vector<fs::path>> ExportFolder::Commit(Others others) {
  // While both the old and the new files may be in the folder, its list has both, so that an export that is
  // killed leaves nothing that the next one does not know.
  ExportManifest both = former_;
  both.Add(made_);
  VANZET_DO(both.Write(folder_));
  for (files::FileReplacement& file : files_) VANZET_DO(file.Commit());
  if (others == Others::kKept) return std::vector<fs::path>();
  VANZET_TRY(auto changed, former_.RemoveAllBut(made_, folder_));
  VANZET_DO(made_.Write(folder_));
  return changed;
}

Fault ChangedSinceExport(const fs::path& file) {
  return {"is not removed: it was changed after it was exported", file.string()};
}

}  // namespace vanzet::results
