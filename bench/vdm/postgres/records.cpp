#include "vdm/postgres/records.h"

#include <algorithm>

#include "vdm/postgres/schema.h"
#include "vdm/record_row.h"

namespace vanzet::vdm {
namespace {

constexpr std::size_t kTogether = 256;

// Ends with the record whose content makes 4 MB: others are fetched when they are asked for.
constexpr std::string_view kRecords = R"(
  SELECT key, items, checksum, content FROM (
    SELECT r.*, sum(length(r.content)) OVER (ORDER BY w.place) - length(r.content) AS before
    FROM unnest($2::bigint[]) WITH ORDINALITY AS w(key, place)
    JOIN vanzet.record r ON r.project=(SELECT id FROM vanzet.project WHERE name=$1) AND r.key=w.key) AS wanted
  WHERE before < 4194304)";

}  // namespace

PostgresRecords::PostgresRecords(std::shared_ptr<PostgresSession> session, Number number,
                                 std::vector<RecordKey> keys)
    : session_(std::move(session)), number_(number), keys_(std::move(keys)) {
  for (std::size_t i = 0; i < keys_.size(); ++i) indices_.emplace(keys_[i], i);
}

Result<Record> PostgresRecords::Load(RecordKey key) {
  if (!fetched_.contains(key)) {
    const auto index = indices_.find(key);
    if (index != indices_.end()) VANZET_DO(FetchFrom(index->second));
  }
  VANZET_TRY(const auto* const connection, session_->Connection());
  const auto found = fetched_.extract(key);
  if (found.empty()) return connection->DamageOf(PlaceOf(key, number_) + ": it is missing");
  if (found.mapped()) return found.mapped();
  return connection->DamageOf(PlaceOf(key, number_) + ": " + found.mapped().fault().text);
}

Result<void> PostgresRecords::FetchFrom(std::size_t index) {
  std::vector<std::int64_t> keys;
  for (std::size_t i = index; i < std::min(index + kTogether, keys_.size()); ++i) {
    keys.push_back(static_cast<std::int64_t>(keys_[i]));
  }
  VANZET_TRY(
      const auto rows,
      session_->Read({kRecords, {PostgresValue::Text(session_->project()), PostgresValue::Integers(keys)}}));
  fetched_.clear();
  for (int i = 0; rows && i < rows->Size(); ++i) {
    fetched_.emplace(RecordKey{rows->Integer(i, 0)},
                     VerifiedRecord({rows->Integer(i, 1), rows->Bytes(i, 3), rows->Integer(i, 2)}));
  }
  return {};
}

}  // namespace vanzet::vdm
