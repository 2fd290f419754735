#include "catalogue/shop_copy.h"

#include <optional>
#include <system_error>

#include "base/files/regular_file.h"
#include "base/quote.h"
#include "catalogue/comparison.h"
#include "catalogue/merge.h"

namespace vanzet::catalogue {
namespace {

namespace fs = std::filesystem;

constexpr const char* kOccasion = "store copy";

/// The folders in which files are kept, at most.
constexpr int kMostFolders = 1000;

/// The names that a note has, at most.
constexpr std::size_t kMostNames = 5;

Result<std::optional<std::string>> TextOf(const fs::path& file) {
  auto text = files::ReadWholeFile(file);
  if (text) return std::optional(*std::move(text));
  if (text.fault().kind == FaultKind::kMissing) return std::optional<std::string>();
  return text.fault();
}

/// The catalogue of a place; nothing where there is none.
Result<std::optional<Shop>> ShopAt(const ShopPlace& place) {
  if (place.IsOnServer()) {
    VANZET_TRY(const auto state, place.Server().Read());
    if (!state) return std::optional<Shop>();
    VANZET_TRY(auto shop, ShopOfRows(state->rows, place.file));
    return std::optional(std::move(shop));
  }
  auto shop = ReadShop(place.file);
  if (shop) return std::optional(*std::move(shop));
  if (shop.fault().kind == FaultKind::kMissing) return std::optional<Shop>();
  return shop.fault();
}

/// The files with the bytes of a catalogue, under the names that they get.
Result<std::vector<ShopCopy::File>> FilesOf(const ShopPlace& from, const Shop& shop, const fs::path& file) {
  std::vector<ShopCopy::File> files = {{file, shop.catalogue.Text()}};
  std::optional<std::string> maker = shop.maker.Text();
  if (!from.IsOnServer()) {
    VANZET_TRY(maker, TextOf(shop.MakerFile()));
  }
  if (maker && !maker->empty()) files.push_back({Shop{.file = file}.MakerFile(), *maker});
  return files;
}

std::string NamesIn(const std::vector<std::string>& names) {
  std::string text;
  for (std::size_t i = 0; i < names.size() && i < kMostNames; ++i)
    text += (text.empty() ? "" : ", ") + Quoted(names[i]);
  return names.size() > kMostNames ? text + " and others" : text;
}

/// The names of devices with an outcome.
std::vector<std::string> NamesOf(const std::vector<Merged>& all, Outcome outcome) {
  std::vector<std::string> names;
  for (const Merged& each : all) {
    if (each.outcome == outcome) names.push_back(each.name);
  }
  return names;
}

/// Adds the devices that the server does not have.
Result<ShopCopy> AddDevices(const Shop& shop, const ShopPlace& to) {
  std::vector<Merged> merged;
  VANZET_DO(ChangeShop(to, kOccasion, [&](Shop& there) -> Result<bool> {
    VANZET_TRY(merged, Merge(there, shop, nullptr, Prefer::kMine));
    return true;
  }));
  ShopCopy copy;
  if (const auto kept = NamesOf(merged, Outcome::kKept); !kept.empty())
    copy.notes.push_back("the catalogue of the server keeps its own values of " + NamesIn(kept));
  if (const auto refused = NamesOf(merged, Outcome::kRefused); !refused.empty())
    copy.notes.push_back("the catalogue of the server does not take " + NamesIn(refused) +
                         "; 'vanzet catalogue merge --dry-run' says why");
  return copy;
}

/// Makes a catalogue where the server has none. Returns false where it has one meanwhile.
Result<bool> FillServer(const ShopPlace& from, const Shop& shop, const ShopPlace& to) {
  if (from.IsOnServer()) {
    VANZET_TRY(const auto history, from.Server().ReadHistory());
    return to.Server().Fill(history.value_or(ShopHistory()));
  }
  bool isNew = false;
  const auto change = [&](const std::optional<DeviceRows>& rows) -> Result<std::optional<DeviceRows>> {
    isNew = !rows;
    return isNew ? std::optional(RowsOf(shop, {})) : std::nullopt;
  };
  VANZET_DO(to.Server().ChangeRows(kOccasion, change));
  return isNew;
}

Result<ShopCopy> CopyToServer(const ShopPlace& from, const Shop& shop, const ShopPlace& to) {
  if (from.IsOnServer() && from.connection == to.connection && from.file.filename() == to.file.filename())
    return ShopCopy();
  VANZET_TRY(const auto there, to.Server().ReadGeneration());
  if (!there) {
    VANZET_TRY(const bool isFilled, FillServer(from, shop, to));
    if (isFilled) return ShopCopy();
  }
  return AddDevices(shop, to);
}

bool IsIn(const fs::path& folder, const fs::path& file) {
  std::error_code error;
  const fs::path within = fs::relative(file, folder, error);
  return !error && !within.empty() && *within.begin() != "..";
}

Result<ShopCopy> CopyToFiles(const ShopPlace& from, const Shop& shop, const fs::path& file,
                             const fs::path& folder) {
  VANZET_TRY(const auto there, ShopAt({.file = file}));
  if (there && DifferencesOf(*there, shop).empty()) return ShopCopy();
  if (there && !IsIn(folder, file)) {
    return ShopCopy{.notes = {"the catalogue '" + file.string() +
                              "' has other devices, and stays: it is not in the folder of the project"}};
  }
  ShopCopy copy;
  if (there) {
    VANZET_TRY(copy.files, FilesToKeep(file));
    copy.notes = {"the devices of the copied project take the place of '" + file.string() +
                  "', which is kept as '" + copy.files.front().file.string() + "'"};
  }
  VANZET_TRY(const auto files, FilesOf(from, shop, file));
  copy.files.insert(copy.files.end(), files.begin(), files.end());
  return copy;
}

}  // namespace

Result<std::vector<ShopCopy::File>> FilesToKeep(const fs::path& file) {
  const std::string name = file.stem().string() + ".former";
  fs::path folder = FolderOf(file) / name;
  std::error_code error;
  for (int i = 2; !fs::create_directory(folder, error) && !error && i < kMostFolders; ++i)
    folder.replace_filename(name + "-" + std::to_string(i));
  const fs::path kept = folder / file.filename();
  std::vector<ShopCopy::File> files;
  for (const auto& [from, to] :
       {std::pair(file, kept), std::pair(Shop{.file = file}.MakerFile(), Shop{.file = kept}.MakerFile())}) {
    VANZET_TRY(auto text, TextOf(from));
    if (text) files.push_back({to, *std::move(text)});
  }
  return files;
}

Result<ShopCopy> CopyShop(const ShopPlace& from, const ShopPlace& to, const fs::path& folder) {
  VANZET_TRY(const auto shop, ShopAt(from));
  if (!shop) return ShopCopy();
  return to.IsOnServer() ? CopyToServer(from, *shop, to) : CopyToFiles(from, *shop, to.file, folder);
}

}  // namespace vanzet::catalogue
