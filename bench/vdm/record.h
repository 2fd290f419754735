#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/result.h"
#include "vdm/gap_buffer.h"

namespace vanzet::vdm {

/// A record: its items, each a text that `CheckItem` accepts.
using Record = GapBuffer<std::string>;

/// The first items of a record, for readers that do not want the long ones.
struct RecordHead {
  Record first;           ///< all of them, unless the record is long
  std::size_t items = 0;  ///< of the whole record
};

/// Bytes of a record that its head holds at most.
inline constexpr std::size_t kHeadBytes = 65536;

/// Bytes of the longest item: its readers have room for 5000, with the closing NUL.
constexpr std::size_t kLongestItem = 4999;

/// Fails for a text that is too long for an item or holds a NUL.
Result<void> CheckItem(std::string_view text);

/// The bytes that stores keep of a record: its items one after the other, each closed by a NUL.
/// Source: docs/formats/store.md
std::string BytesOf(const Record& record);

/// Reads those bytes back. Fails, with what is wrong, when they do not hold a record of `count` items
/// (`FaultKind::kDamaged`).
Result<Record> RecordFrom(std::string_view bytes, std::int64_t count);

/// Reads the items that end within the first bytes of a record of `count` items.
Result<RecordHead> RecordHeadFrom(std::string_view bytes, std::int64_t count);

}  // namespace vanzet::vdm
