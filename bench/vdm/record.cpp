#include "vdm/record.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace vanzet::vdm {
namespace {

Fault Damage(std::string text) {
  return {.text = std::move(text), .kind = FaultKind::kDamaged};
}

}  // namespace

Result<void> CheckItem(std::string_view text) {
  if (text.size() > kLongestItem) {
    return Fault{"an item has " + std::to_string(text.size()) + " bytes, more than " +
                 std::to_string(kLongestItem)};
  }
  if (text.find('\0') != std::string_view::npos) return Fault{"an item holds a NUL"};
  return {};
}

std::string BytesOf(const Record& record) {
  std::size_t size = record.Size();
  for (std::size_t i = 0; i < record.Size(); ++i) size += record[i].size();
  std::string bytes;
  bytes.reserve(size);
  for (std::size_t i = 0; i < record.Size(); ++i) bytes.append(record[i]).push_back('\0');
  return bytes;
}

Result<Record> RecordFrom(std::string_view bytes, std::int64_t count) {
  const auto closed = std::count(bytes.begin(), bytes.end(), '\0');
  if (closed != count) {
    return Damage("it holds " + std::to_string(closed) + " items and not " + std::to_string(count));
  }
  std::vector<std::string> items;
  items.reserve(static_cast<std::size_t>(closed));
  while (!bytes.empty()) {
    const std::size_t end = bytes.find('\0');
    if (end == std::string_view::npos) return Damage("its last item has no end");
    const std::string_view item = bytes.substr(0, end);
    VANZET_DO(CheckItem(item));
    items.emplace_back(item);
    bytes.remove_prefix(end + 1);
  }
  return Record(std::move(items));
}

Result<RecordHead> RecordHeadFrom(std::string_view bytes, std::int64_t count) {
  const std::size_t lastEnd = bytes.rfind('\0');
  const std::string_view whole = bytes.substr(0, lastEnd == std::string_view::npos ? 0 : lastEnd + 1);
  const auto closed = std::count(whole.begin(), whole.end(), '\0');
  if (closed > count) {
    return Damage("it holds " + std::to_string(closed) + " items or more, and not " + std::to_string(count));
  }
  VANZET_TRY(auto first, RecordFrom(whole, closed));
  return RecordHead{std::move(first), static_cast<std::size_t>(count)};
}

}  // namespace vanzet::vdm
