#include "catalogue/shop.h"

#include <optional>
#include <system_error>

#include "base/files/folder_lock.h"
#include "base/files/regular_file.h"
#include "base/files/whole_file.h"

namespace vanzet::catalogue {
namespace {

namespace fs = std::filesystem;

/// The content of a file; nothing for one that does not exist.
Result<std::optional<std::string>> ReadIfThere(const fs::path& file) {
  auto text = files::ReadWholeFile(file);
  if (text) return std::optional(*std::move(text));
  if (text.fault().kind == FaultKind::kMissing) return std::optional<std::string>();
  return text.fault();
}

Result<Shop> ReadFiles(const fs::path& file, std::string text) {
  Shop shop{.file = file, .catalogue = Catalogue::Read(std::move(text))};
  VANZET_TRY(const auto maker, ReadIfThere(shop.MakerFile()));
  if (!maker) return shop;
  VANZET_TRY(shop.maker, MakerData::Read(*maker, shop.MakerFile().string()));
  return shop;
}

/// The new content of a file that a change has to write.
struct Written {
  fs::path file;
  std::string text;
};

/// Gives all files their new content once that of each is on the disk.
Result<void> WriteAll(const std::vector<Written>& all) {
  std::vector<files::FileReplacement> replacements;
  for (const Written& each : all) {
    VANZET_TRY(auto replacement, files::FileReplacement::Begin(each.file, files::Keep::kIdentity));
    VANZET_DO(replacement.Write(each.text));
    VANZET_DO(replacement.Prepare());
    replacements.push_back(std::move(replacement));
  }
  for (files::FileReplacement& replacement : replacements) VANZET_DO(replacement.Commit());
  return {};
}

}  // namespace

fs::path FolderOf(const fs::path& file) {
  std::error_code unknown;
  const fs::path target = fs::weakly_canonical(fs::absolute(file, unknown), unknown);
  return (unknown ? file : target).parent_path();
}

fs::path Shop::MakerFile() const {
  return FolderOf(file) / kMakerFile;
}

Shop Shop::ShownIn(LengthUnit unit) const {
  if (unit == LengthUnit::kMillimetre) return *this;
  return {.file = file, .catalogue = catalogue.ShownIn(unit), .maker = maker.ShownIn(unit)};
}

Result<Shop> ReadShop(const fs::path& file) {
  VANZET_TRY(auto text, files::ReadWholeFile(file));
  return ReadFiles(file, std::move(text));
}

Shop ShopOfText(const std::string& text, const std::string& name) {
  return {.file = name, .catalogue = Catalogue::Read(text)};
}

Result<void> WriteChanges(const Shop& shop, const std::string& catalogueBefore,
                          const std::string& makerBefore) {
  std::vector<Written> written;
  if (std::string now = shop.catalogue.Text(); now != catalogueBefore)
    written.push_back({shop.file, std::move(now)});
  if (std::string now = shop.maker.Text(); now != makerBefore) {
    VANZET_DO(shop.maker.CheckChangeable(shop.MakerFile().string()));
    written.push_back({shop.MakerFile(), std::move(now)});
  }
  return WriteAll(written);
}

Result<void> ChangeShop(const fs::path& file, const std::function<Result<bool>(Shop&)>& change) {
  const fs::path folder = FolderOf(file);
  const auto lock = files::FolderLock::Acquire(folder);
  // Folders of some network shares cannot be locked; a folder that does not exist is a fault of the writing.
  if (!lock && lock.fault().kind == FaultKind::kBusy) return lock.fault();
  files::RemoveLeftovers(folder);
  VANZET_TRY(const auto text, ReadIfThere(file));
  if (text) VANZET_DO(files::CheckChangeableFile(file));
  VANZET_TRY(Shop shop, ReadFiles(file, text.value_or("")));
  VANZET_DO(CheckIsCatalogue(shop.catalogue, file.string()));
  const std::string catalogueBefore = shop.catalogue.Text(), makerBefore = shop.maker.Text();
  VANZET_TRY(const bool isWanted, change(shop));
  return isWanted ? WriteChanges(shop, catalogueBefore, makerBefore) : Result<void>();
}

}  // namespace vanzet::catalogue
