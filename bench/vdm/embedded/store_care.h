#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "base/result.h"

/// Looking after the file of a store: docs/formats/store.md. A missing file, or one without a byte, is a
/// store without VDMs, and sound.
namespace vanzet::vdm {

/// One thing that is wrong with a store, or that could not be kept; the text says where in the store.
using StoreFindings = std::vector<std::string>;

/// Reads the whole store: the structure of the file, the order of records, each record with its count and its
/// checksum, and that nothing is there that belongs to nothing. Fails when the file cannot be opened,
/// belongs to another program or to a newer version; a file that is not a database is a finding.
Result<StoreFindings> CheckStore(const std::filesystem::path& file);

/// The outcome of a repair.
struct StoreRepair {
  std::filesystem::path aside;  ///< where the damaged file is now; empty: nothing was wrong, nothing was done
  std::size_t vdms = 0, records = 0;
  StoreFindings missing;  ///< what could not be kept
};

/// Replaces a damaged store by one with all that can be read of it. The damaged file gets another name in its
/// folder: "store.db.damaged", or with a number after it. A repair that fails leaves what it has written in
/// `scratch`. Requires: nobody else changes the project; `scratch` is an empty folder on the same disk.
Result<StoreRepair> RepairStore(const std::filesystem::path& file, const std::filesystem::path& scratch);

/// Writes a copy of the store to a file that does not exist, as one state while others work.
/// Fails with `kMissing` without a store.
Result<void> CopyStore(const std::filesystem::path& file, const std::filesystem::path& copy);

}  // namespace vanzet::vdm
