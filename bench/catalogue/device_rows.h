#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "catalogue/shop.h"

/// The devices of a catalogue as a server keeps them, a row each.
namespace vanzet::catalogue {

/// A device in the place that it has in the catalogue.
struct DeviceRow {
  std::int64_t position = 0;  ///< rises from row to row
  std::string name = {};
  std::string lines = {};  ///< both lines of the file, with their ends; empty: only maker data have the name
  std::string figures = {};  ///< the maker data as JSON; empty: none

  bool operator==(const DeviceRow&) const = default;
};
using DeviceRows = std::vector<DeviceRow>;

/// The rows of a shop. Devices that `former` has keep its positions; new ones come behind all of them.
DeviceRows RowsOf(const Shop& shop, const DeviceRows& former);

/// The text of the catalogue of rows.
std::string LinesOf(const DeviceRows& rows);

/// The shop of rows; `file` stands for the file of its catalogue.
/// Errors   kDamaged for figures that are not maker data
Result<Shop> ShopOfRows(const DeviceRows& rows, const std::filesystem::path& file);

/// The rows that a change ends, and those that it adds.
struct RowChanges {
  DeviceRows ended, added;

  bool AreEmpty() const { return ended.empty() && added.empty(); }
};

/// The changes between rows, by position.
RowChanges ChangesBetween(const DeviceRows& before, const DeviceRows& now);

/// Brings the changes from `base` to `other` into rows, byte for byte. The other side is taken where both
/// changed a device, but a device that these rows changed is not removed.
/// Returns the names of devices that both sides changed.
std::vector<std::string> TakeChanges(DeviceRows& rows, const DeviceRows& base, const DeviceRows& other);

}  // namespace vanzet::catalogue
