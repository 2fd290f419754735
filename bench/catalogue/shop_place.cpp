#include "catalogue/shop_place.h"

#include <optional>

#include "base/files/regular_file.h"
#include "project/catalogue.h"

namespace vanzet::catalogue {
namespace {

/// The shop of the files; an empty one without a catalogue.
Result<Shop> FirstShop(const std::filesystem::path& file) {
  auto shop = ReadShop(file);
  if (!shop && shop.fault().kind == FaultKind::kMissing) return Shop{.file = file};
  if (shop) VANZET_DO(CheckIsCatalogue(shop->catalogue, file.string()));
  return shop;
}

}  // namespace

ShopPlace PlaceOf(const project::Project& project, std::string_view setting) {
  const project::StorePlace& store = project.settings().store;
  return {project::CatalogueFile(project, setting), store.connection, store.keep};
}

Result<Shop> ReadShop(const ShopPlace& place) {
  if (!place.IsOnServer()) return ReadShop(place.file);
  VANZET_TRY(const auto state, place.Server().Read());
  return state ? ShopOfRows(state->rows, place.file) : ReadShop(place.file);
}

Result<Catalogue> ReadCatalogue(const ShopPlace& place) {
  if (place.IsOnServer()) {
    VANZET_TRY(const auto state, place.Server().Read());
    if (state) return Catalogue::Read(LinesOf(state->rows));
  }
  VANZET_TRY(const auto text, files::ReadWholeFile(place.file));
  return Catalogue::Read(text);
}

Result<void> ChangeShop(const ShopPlace& place, const std::string& occasion,
                        const std::function<Result<bool>(Shop&)>& change) {
  if (!place.IsOnServer()) return ChangeShop(place.file, change);
  const auto changeRows = [&](const std::optional<DeviceRows>& rows) -> Result<std::optional<DeviceRows>> {
    VANZET_TRY(Shop shop, rows ? ShopOfRows(*rows, place.file) : FirstShop(place.file));
    VANZET_TRY(const bool isWanted, change(shop));
    if (!isWanted) return std::optional<DeviceRows>();
    return std::optional(RowsOf(shop, rows.value_or(DeviceRows())));
  };
  return place.Server().ChangeRows(occasion, changeRows);
}

}  // namespace vanzet::catalogue
