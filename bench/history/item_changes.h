#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "vdm/vdm.h"

namespace vanzet::history {

/// An item that is in one of two contents, or another text in the other one.
struct ItemChange {
  std::size_t record = 0;  ///< its place in the new content; in the former one when it was removed
  std::size_t item = 0;
  std::optional<std::string> before, now;

  bool operator==(const ItemChange&) const = default;
};

/// The items by which two contents differ. Records that are the same are found where they have moved to by
/// others that came or went; records between them are compared one by one, and so are the items in these.
/// Fails when a record cannot be read.
Result<std::vector<ItemChange>> ItemChanges(const vdm::Vdm& before, const vdm::Vdm& now);

/// The number of records that came, went or changed.
Result<std::size_t> CountChangedRecords(const vdm::Vdm& before, const vdm::Vdm& now);

}  // namespace vanzet::history
