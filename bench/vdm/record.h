#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/result.h"
#include "vdm/gap_buffer.h"

namespace vanzet::vdm {

/// A record: its items, each a text that `CheckItem` lets pass.
using Record = GapBuffer<std::string>;

/// Bytes of the longest item: those who read one have room for 5000, the closing NUL included.
constexpr std::size_t kLongestItem = 4999;

/// Refuses a text that is too long for an item or holds a NUL.
Result<void> CheckItem(std::string_view text);

/// The form in which stores keep a record: its items one after the other, each closed by a NUL.
/// Source: docs/formats/store.md
std::string BytesOf(const Record& record);

/// The record that such bytes hold. A fault tells what is wrong with bytes that hold no record of `count`
/// items.
Result<Record> RecordFrom(std::string_view bytes, std::int64_t count);

}  // namespace vanzet::vdm
