#include "vdm/embedded/former_records.h"

#include <unordered_set>

namespace vanzet::vdm {
namespace {

constexpr std::string_view kChecksum = "SELECT checksum FROM record WHERE key=?1";
constexpr std::string_view kHolds = "SELECT content=?2 AND items=?3 AND checksum=?4 FROM record WHERE key=?1";

std::int64_t Bound(RecordKey key) {
  return static_cast<std::int64_t>(key);
}

}  // namespace

FormerRecords::FormerRecords(SqliteConnection& connection, const Vdm& content,
                             const std::vector<RecordKey>& keys)
    : connection_(connection) {
  std::unordered_set<RecordKey> used;
  for (std::size_t i = 0; i < content.Size(); ++i) {
    if (const auto key = content.EntryOf(i).key) used.insert(*key);
  }
  for (const RecordKey key : keys) {
    if (!used.contains(key)) left_.push_back(key);
  }
}

Result<bool> FormerRecords::Holds(RecordKey key, const StoredBytes& record) {
  VANZET_TRY(const auto holds,
             connection_.Integer(kHolds, {Bound(key), record.content, record.items, record.checksum}));
  return holds != 0;
}

Result<std::optional<RecordKey>> FormerRecords::Take(const StoredBytes& record) {
  VANZET_DO(ReadChecksums());
  const auto [begin, end] = byChecksum_.equal_range(record.checksum);
  for (auto each = begin; each != end; ++each) {
    const RecordKey key = each->second;
    VANZET_TRY(const bool holds, Holds(key, record));
    if (!holds) continue;
    byChecksum_.erase(each);
    return std::optional(key);
  }
  return std::optional<RecordKey>();
}

Result<void> FormerRecords::ReadChecksums() {
  for (const RecordKey key : left_) {
    VANZET_DO(connection_.Run(kChecksum, {Bound(key)}, [&](const SqliteRow& row) -> Result<void> {
      byChecksum_.emplace(row.Integer(0), key);
      return {};
    }));
  }
  left_.clear();
  return {};
}

}  // namespace vanzet::vdm
