#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "catalogue/server_shop.h"
#include "catalogue/shop.h"
#include "project/project.h"
#include "vdm/store_engine.h"

namespace vanzet::catalogue {

/// Where the devices of a shop are kept: in the files of a catalogue, or on the server of a shared store.
struct ShopPlace {
  std::filesystem::path file = {};      ///< on a server: the name of the catalogue there, and its file here
  std::string connection = {};          ///< of a PostgreSQL server; empty: the files alone
  std::int64_t keep = vdm::kUsualKeep;  ///< the states of each device that stay on the server

  bool IsOnServer() const { return !connection.empty(); }
  ServerShop Server() const { return {connection, file.filename().string(), keep}; }
  /// The same as a store on the server, for those who watch it.
  project::StorePlace Store() const {
    return {connection, ServerShop::ProjectOf(file.filename().string()), keep};
  }
};

/// The place of the catalogue that a project uses; `setting` is the value of `project::kCatalogueSetting`.
ShopPlace PlaceOf(const project::Project& project, std::string_view setting);

/// Reads the devices. A server that has no catalogue of this name yet leaves it to the file.
/// Errors   those of the file and of the server
Result<Shop> ReadShop(const ShopPlace& place);

/// The same without the maker data.
Result<Catalogue> ReadCatalogue(const ShopPlace& place);

/// Reads the devices, has `change` change them, and writes them; nobody else changes them meanwhile. The
/// first change on a server brings the devices of the file there. Nothing is written when `change` fails or
/// returns false; it may be called twice. `occasion` is a word for the history.
Result<void> ChangeShop(const ShopPlace& place, const std::string& occasion,
                        const std::function<Result<bool>(Shop&)>& change);

}  // namespace vanzet::catalogue
