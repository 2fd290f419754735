#include "catalogue/shared_files.h"

#include <charconv>
#include <sstream>
#include <system_error>

#include "base/files/folder_lock.h"
#include "base/files/regular_file.h"
#include "base/files/whole_file.h"
#include "base/quote.h"
#include "catalogue/comparison.h"
#include "catalogue/shop_copy.h"
#include "vdm/checksum.h"

namespace vanzet::catalogue {
namespace {

namespace fs = std::filesystem;

std::string HexOf(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string hex;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    hex.push_back(kDigits[byte >> 4U]);
    hex.push_back(kDigits[byte & 0xFU]);
  }
  return hex;
}

std::string BytesOfHex(std::string_view hex) {
  std::string bytes;
  for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
    unsigned int byte = 0;
    std::from_chars(hex.data() + i, hex.data() + i + 2, byte, 16);
    bytes.push_back(static_cast<char>(byte));
  }
  return bytes;
}

}  // namespace

/// The texts of the files.
struct SharedFiles::Files {
  bool exists = false;
  std::string catalogue = {}, maker = {};  ///< their texts

  std::uint64_t Checksum() const {
    return vdm::ChecksumOf(std::to_string(catalogue.size()) + "\n" + catalogue + maker);
  }
};

/// The generation that the files had last, and their checksum then.
struct SharedFiles::Stamp {
  ServerState state = {};
  std::uint64_t checksum = 0;
};

Result<SharedFiles::Notes> SharedFiles::Begin() {
  if (!place_.IsOnServer()) return Notes();
  VANZET_TRY(auto notes, Settle("file"));
  VANZET_TRY(const auto files, ReadFiles());
  before_ = files.Checksum();
  return notes;
}

Result<SharedFiles::Notes> SharedFiles::Merge(const std::string& occasion) {
  if (!place_.IsOnServer()) return Notes();
  VANZET_TRY(const auto files, ReadFiles());
  if (files.Checksum() == before_) return Notes();
  // The first change takes all devices of the file to a server without a catalogue.
  VANZET_TRY(const auto state, place_.Server().ReadGeneration());
  if (!state) VANZET_DO(ChangeShop(place_, occasion, [](Shop&) -> Result<bool> { return true; }));
  return Settle(occasion);
}

Result<SharedFiles::Notes> SharedFiles::Settle(const std::string& occasion) {
  const auto lock = files::FolderLock::Acquire(FolderOf(place_.file));
  // Folders of some network shares cannot be locked.
  if (!lock && lock.fault().kind == FaultKind::kBusy) return lock.fault();
  VANZET_TRY(const auto now, place_.Server().ReadGeneration());
  if (!now) return Notes();
  VANZET_TRY(const auto files, ReadFiles());
  VANZET_TRY(const auto stamp, ReadStamp());
  const bool areChanged = !stamp || stamp->checksum != files.Checksum();
  if (!areChanged && stamp->state.generation == now->generation && stamp->state.token == now->token)
    return Notes();
  Notes notes;
  if (areChanged && files.exists) {
    VANZET_TRY(notes, TakeToServer(stamp.value_or(Stamp()), occasion));
  }
  VANZET_DO(BringFromServer(files));
  return notes;
}

Result<SharedFiles::Files> SharedFiles::ReadFiles() const {
  Files files;
  auto catalogue = files::ReadWholeFile(place_.file);
  if (!catalogue && catalogue.fault().kind == FaultKind::kMissing) return files;
  if (!catalogue) return catalogue.fault();
  files.exists = true;
  files.catalogue = *std::move(catalogue);
  auto maker = files::ReadWholeFile(Shop{.file = place_.file}.MakerFile());
  if (!maker && maker.fault().kind != FaultKind::kMissing) return maker.fault();
  if (maker) files.maker = *std::move(maker);
  return files;
}

/// Takes the changes of the files since the generation of the stamp; files without one are set aside unless
/// they have the same devices.
Result<SharedFiles::Notes> SharedFiles::TakeToServer(const Stamp& stamp, const std::string& occasion) const {
  VANZET_TRY(const auto shop, ReadShop(place_.file));
  ServerShop server = place_.Server();
  VANZET_TRY(const auto base, server.ReadAt(stamp.state));
  if (!base) return SetAside(shop);
  VANZET_DO(CheckIsCatalogue(shop.catalogue, place_.file.string()));
  const DeviceRows other = RowsOf(shop, *base);
  Notes names;
  const auto take = [&](const std::optional<DeviceRows>& rows) -> Result<std::optional<DeviceRows>> {
    auto merged = rows;
    if (merged) names = TakeChanges(*merged, *base, other);
    return merged;
  };
  VANZET_DO(server.ChangeRows(occasion, take));
  for (std::string& name : names) {
    name = "others changed the device " + Quoted(name) +
           " meanwhile; their values are in 'vanzet catalogue history'";
  }
  return names;
}

/// Brings the devices to the files, and notes their generation.
Result<void> SharedFiles::BringFromServer(const Files& files) const {
  VANZET_TRY(const auto state, place_.Server().Read());
  if (!state) return {};
  VANZET_TRY(Shop shop, ShopOfRows(state->rows, place_.file));
  std::string makerBefore;
  if (files.exists) {
    VANZET_TRY(const auto before, ReadShop(place_.file));
    makerBefore = before.maker.Text();
    shop.maker.KeepFormOf(before.maker);
  }
  VANZET_DO(WriteChanges(shop, files.catalogue, makerBefore));
  VANZET_TRY(const auto written, ReadFiles());
  const std::string stamp = std::to_string(state->generation) + " " + HexOf(state->token) + " " +
                            std::to_string(written.Checksum()) + "\n";
  return files::ReplaceFile(StampFile(), stamp);
}

/// Keeps the files in a folder beside them, where they have other devices than the server.
Result<SharedFiles::Notes> SharedFiles::SetAside(const Shop& shop) const {
  VANZET_TRY(const auto found, ReadShop(place_));
  if (DifferencesOf(found, shop).empty()) return Notes();
  VANZET_TRY(const auto kept, FilesToKeep(place_.file));
  for (const ShopCopy::File& each : kept) VANZET_DO(files::ReplaceFile(each.file, each.text));
  return Notes{"the devices of the server took the place of '" + place_.file.string() +
               "', which is kept as '" + kept.front().file.string() +
               "'; 'vanzet catalogue merge' brings its devices to the server"};
}

Result<std::optional<SharedFiles::Stamp>> SharedFiles::ReadStamp() const {
  const auto text = files::ReadWholeFile(StampFile());
  if (!text && text.fault().kind == FaultKind::kMissing) return std::optional<Stamp>();
  if (!text) return text.fault();
  std::istringstream words(*text);
  Stamp stamp;
  std::string token;
  words >> stamp.state.generation >> token >> stamp.checksum;
  stamp.state.token = BytesOfHex(token);
  // A stamp that cannot be read is none: the files are set aside then.
  return words ? std::optional(std::move(stamp)) : std::nullopt;
}

fs::path SharedFiles::StampFile() const {
  return FolderOf(place_.file) / ("." + place_.file.filename().string() + ".shared");
}

}  // namespace vanzet::catalogue
