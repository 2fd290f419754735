#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "vdm/vdm.h"

/// Records as the engines keep them: docs/formats/store.md.
namespace vanzet::vdm {

/// A record as a row keeps it.
struct RecordRow {
  std::int64_t items;
  std::string_view content;              ///< or its first bytes
  std::optional<std::int64_t> checksum;  ///< nothing: stores of the first schema have none
};

/// Verifies the count and the checksum, and reads the content. Its fault does not say which record it is.
Result<Record> VerifiedRecord(const RecordRow& row);

/// The same for the head of a record that has so many bytes. A longer one is not verified, but for its count.
Result<RecordHead> VerifiedHead(const RecordRow& row, std::int64_t bytes);

/// "record 4, of VDM 1000", as faults name it.
std::string PlaceOf(RecordKey key, Number number);

/// The checksum of a record's bytes, as its column holds it.
std::int64_t StoredChecksum(std::string_view bytes);

}  // namespace vanzet::vdm
