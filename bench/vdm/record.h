#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/result.h"
#include "vdm/gap_buffer.h"

namespace vanzet::vdm {

/// A record: its items, each a text that `CheckItem` accepts.
using Record = GapBuffer<std::string>;

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

}  // namespace vanzet::vdm
