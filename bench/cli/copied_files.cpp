#include "cli/copied_files.h"

#include <optional>
#include <system_error>

#include "base/files/regular_file.h"
#include "catalogue/shop_copy.h"
#include "drawing/board.h"
#include "vdm/postgres/file.h"

namespace vanzet::cli {
namespace {

using drawing::Board;

/// The drawing of a project; nothing where it has none. Of a project on a server it is the last one that was
/// committed there, by whatever folder.
Result<std::optional<std::string>> DrawingOf(const CopyEnd& end) {
  if (!end.IsServer()) {
    auto text = files::ReadWholeFile(end.folder / Board::kFile);
    if (text) return std::optional(*std::move(text));
    if (text.fault().kind == FaultKind::kMissing) return std::optional<std::string>();
    return text.fault();
  }
  vdm::PostgresSession session(end.store.connection, end.store.project);
  VANZET_TRY(const auto file, LastFile(session));
  return file && file->name == Board::kFile ? std::optional(file->content) : std::nullopt;
}

}  // namespace

Result<std::vector<std::string>> CopiedFiles::Prepare(const CopyEnd& from, const CopyEnd& to) {
  // By its catalogue a folder is known as a project, when the copy ends here and is repeated.
  VANZET_TRY(const auto copy, CopyShop(from.shop, to.shop, to.folder));
  for (const auto& each : copy.files) VANZET_DO(Add(each.file, each.text));
  VANZET_DO(PrepareDrawing(from, to));
  return copy.notes;
}

Result<void> CopiedFiles::PrepareDrawing(const CopyEnd& from, const CopyEnd& to) {
  VANZET_TRY(const auto drawing, DrawingOf(from));
  if (!drawing) return {};
  if (!to.IsServer()) VANZET_DO(Add(to.folder / Board::kFile, *drawing));
  if (to.store.connection.empty()) return {};
  vdm::PostgresSession session(to.store.connection, to.store.project);
  return SetLastFile(session, {Board::kFile, *drawing});
}

/// The bytes of the file are on the disk, so that `Commit` cannot run out of room.
Result<void> CopiedFiles::Add(const std::filesystem::path& file, const std::string& text) {
  VANZET_TRY(auto replacement, files::FileReplacement::Begin(file, files::Keep::kIdentity));
  VANZET_DO(replacement.Write(text));
  VANZET_DO(replacement.Prepare());
  std::error_code unknown;
  if (!std::filesystem::exists(file, unknown)) new_.push_back(file);
  files_.push_back(std::move(replacement));
  return {};
}

Result<void> CopiedFiles::Commit() {
  for (files::FileReplacement& each : files_) VANZET_DO(each.Commit());
  return {};
}

void CopiedFiles::Withdraw() {
  std::error_code isGone;
  for (const std::filesystem::path& file : new_) std::filesystem::remove(file, isGone);
}

}  // namespace vanzet::cli
