#include "vdm/postgres/commit.h"

#include <algorithm>
#include <span>
#include <unordered_set>

#include "vdm/record_row.h"

namespace vanzet::vdm {
namespace {

constexpr std::string_view kEndVdms =
    "UPDATE vanzet.vdm SET last=$3 - 1 WHERE project=$1 AND number=ANY($2) AND last=9223372036854775807";
constexpr std::string_view kAddVdms = R"(
  INSERT INTO vanzet.vdm(project, number, last, first)
  SELECT $1, number, 9223372036854775807, $3 FROM unnest($2::bigint[]) AS added(number))";
constexpr std::string_view kAddCuts = R"(
  INSERT INTO vanzet.vdm(project, number, last, first)
  SELECT $1, number, $3 - 1, 0 FROM unnest($2::bigint[]) AS cut(number))";
constexpr std::string_view kEndPlaces = R"(
  UPDATE vanzet.place p SET last=$4 - 1 FROM unnest($2::bigint[], $3::bigint[]) AS ended(vdm, position)
  WHERE p.project=$1 AND p.vdm=ended.vdm AND p.last=9223372036854775807 AND p.position=ended.position)";
constexpr std::string_view kAddPlaces = R"(
  INSERT INTO vanzet.place(project, vdm, last, position, first, record)
  SELECT $1, vdm, 9223372036854775807, position + i, $6, record + i
  FROM unnest($2::bigint[], $3::bigint[], $4::bigint[], $5::bigint[]) AS run(vdm, position, record, size),
       generate_series(0, size - 1) AS i)";
constexpr std::string_view kAddRecords = R"(
  INSERT INTO vanzet.record(project, key, items, checksum, content)
  SELECT $1, key, items, checksum, content
  FROM unnest($2::bigint[], $3::bigint[], $4::bigint[], $5::bytea[]) AS added(key, items, checksum, content))";
constexpr std::string_view kAddGeneration =
    "INSERT INTO vanzet.generation(project, number, time, \"user\", host, program, occasion, token) "
    "VALUES($1, $2, $3, $4, $5, $6, $7, $8)";

/// The rows and the bytes of one statement at most, so that neither side needs much memory at once.
constexpr std::size_t kRowsTogether = 10'000, kBytesTogether = std::size_t{4} << 20U;

PostgresValue Part(const std::vector<std::int64_t>& column, std::size_t begin) {
  const std::span<const std::int64_t> all = column;
  return PostgresValue::Integers(all.subspan(begin, std::min(kRowsTogether, all.size() - begin)));
}

NewPlace PlaceOf(const Vdm::Entry& entry) {
  if (!entry.MustBeWritten()) return {entry.key, {}};
  std::string content = BytesOf(*entry.content);
  const std::int64_t checksum = StoredChecksum(content);
  return {entry.key,
          NewRecord{std::move(content), static_cast<std::int64_t>(entry.content->Size()), checksum}};
}

bool IsSame(const FormerPlace& former, const NewRecord& record) {
  return former.checksum == record.checksum && former.items == record.items &&
         former.content == record.content;
}

template <class Visit>
void ForEachNew(const NewOrders& orders, const Visit& visit) {
  for (const auto& [number, order] : orders) {
    if (!order) continue;
    for (const NewPlace& place : *order) {
      if (place.record) visit(*place.record);
    }
  }
}

}  // namespace

NewOrders OrdersOf(const Changes& vdms) {
  NewOrders orders;
  for (const auto& [number, content] : vdms) {
    auto& order = orders[number];
    if (!content) continue;
    order.emplace().reserve(content->Size());
    for (std::size_t i = 0; i < content->Size(); ++i) order->push_back(PlaceOf(content->EntryOf(i)));
  }
  return orders;
}

std::int64_t CountNew(const NewOrders& orders) {
  std::int64_t count = 0;
  ForEachNew(orders, [&](const NewRecord&) { ++count; });
  return count;
}

std::vector<std::int64_t> ChecksumsOf(const NewOrders& orders) {
  std::vector<std::int64_t> checksums;
  checksums.reserve(static_cast<std::size_t>(CountNew(orders)));
  ForEachNew(orders, [&](const NewRecord& record) { checksums.push_back(record.checksum); });
  return checksums;
}

/// The former records of one VDM, each found once by its content.
class PostgresCommit::Former {
 public:
  Former(const std::vector<NewPlace>& after, const std::vector<FormerPlace>& before) {
    std::unordered_set<RecordKey> used;
    for (const NewPlace& place : after) {
      if (place.key) used.insert(*place.key);
    }
    for (const FormerPlace& place : before) {
      byKey_.emplace(place.key, &place);
      if (!used.contains(place.key)) free_.emplace(place.checksum, &place);
    }
  }

  /// True when the records that are kept or were edited are all there.
  bool Has(const std::vector<NewPlace>& after) const {
    return std::ranges::all_of(after,
                               [&](const auto& each) { return !each.key || byKey_.contains(*each.key); });
  }

  bool Holds(RecordKey key, const NewRecord& record) const { return IsSame(*byKey_.at(key), record); }

  std::optional<RecordKey> Take(const NewRecord& record) {
    const auto [begin, end] = free_.equal_range(record.checksum);
    const auto found =
        std::find_if(begin, end, [&](const auto& each) { return IsSame(*each.second, record); });
    if (found == end) return {};
    const RecordKey key = found->second->key;
    free_.erase(found);
    return key;
  }

 private:
  std::map<RecordKey, const FormerPlace*> byKey_;
  std::multimap<std::int64_t, const FormerPlace*> free_;
};

bool PostgresCommit::Write(Number number, const std::vector<NewPlace>& after,
                           const std::vector<FormerPlace>& before, std::vector<RecordKey>* keys) {
  Former former(after, before);
  if (!former.Has(after)) return false;
  std::vector<RecordKey> order;
  order.reserve(after.size());
  for (const NewPlace& place : after) order.push_back(KeyOf(place, former));
  ended_.push_back(static_cast<std::int64_t>(number));
  added_.push_back(static_cast<std::int64_t>(number));
  ChangeOrder(number, before, order);
  if (keys != nullptr) *keys = std::move(order);
  return true;
}

RecordKey PostgresCommit::KeyOf(const NewPlace& place, Former& former) {
  if (!place.record) return *place.key;
  if (place.key) {
    if (former.Holds(*place.key, *place.record)) return *place.key;
  } else if (const auto found = former.Take(*place.record)) {
    return *found;
  }
  keys_.push_back(++lastRecord_);
  records_.push_back(&*place.record);
  return RecordKey{lastRecord_};
}

void PostgresCommit::Remove(Number number, const std::vector<FormerPlace>& before) {
  ended_.push_back(static_cast<std::int64_t>(number));
  ChangeOrder(number, before, {});
}

void PostgresCommit::ChangeOrder(Number number, const std::vector<FormerPlace>& before,
                                 const std::vector<RecordKey>& after) {
  const auto vdm = static_cast<std::int64_t>(number);
  for (std::size_t i = 0; i < std::max(before.size(), after.size()); ++i) {
    const bool isNow = i < after.size(), wasBefore = i < before.size();
    if (isNow && wasBefore && before[i].key == after[i]) continue;
    const auto position = static_cast<std::int64_t>(i);
    if (wasBefore) {
      endedVdms_.push_back(vdm);
      endedPositions_.push_back(position);
    }
    if (isNow) AddPlace(vdm, position, static_cast<std::int64_t>(after[i]));
  }
}

void PostgresCommit::AddPlace(std::int64_t vdm, std::int64_t position, std::int64_t record) {
  if (!runSizes_.empty()) {
    std::int64_t& size = runSizes_.back();
    if (runVdms_.back() == vdm && runPositions_.back() + size == position &&
        runRecords_.back() + size == record && size < std::int64_t{kRowsTogether}) {
      ++size;
      return;
    }
  }
  runVdms_.push_back(vdm);
  runPositions_.push_back(position);
  runRecords_.push_back(record);
  runSizes_.push_back(1);
}

std::vector<PostgresStatement> PostgresCommit::Statements() const {
  const auto integers = [](const auto& values) { return PostgresValue::Integers(values); };
  std::vector<PostgresStatement> statements;
  if (!ended_.empty()) statements.push_back({kEndVdms, {project_, integers(ended_), generation_}});
  if (!cut_.empty()) statements.push_back({kAddCuts, {project_, integers(cut_), generation_}});
  if (!added_.empty()) statements.push_back({kAddVdms, {project_, integers(added_), generation_}});
  for (std::size_t i = 0; i < endedVdms_.size(); i += kRowsTogether) {
    statements.push_back(
        {kEndPlaces, {project_, Part(endedVdms_, i), Part(endedPositions_, i), generation_}});
  }
  for (std::size_t i = 0; i < runSizes_.size(); i += kRowsTogether) {
    statements.push_back({kAddPlaces,
                          {project_, Part(runVdms_, i), Part(runPositions_, i), Part(runRecords_, i),
                           Part(runSizes_, i), generation_}});
  }
  AddRecords(statements);
  return statements;
}

void PostgresCommit::AddRecords(std::vector<PostgresStatement>& statements) const {
  std::vector<std::int64_t> keys, items, checksums;
  std::vector<std::string_view> contents;
  std::size_t bytes = 0;
  for (std::size_t i = 0; i < records_.size(); ++i) {
    keys.push_back(keys_[i]);
    items.push_back(records_[i]->items);
    checksums.push_back(records_[i]->checksum);
    contents.emplace_back(records_[i]->content);
    bytes += records_[i]->content.size() + sizeof(std::int64_t);
    const bool isFull = bytes >= kBytesTogether || keys.size() == kRowsTogether;
    if (!isFull && i + 1 < records_.size()) continue;
    statements.push_back({kAddRecords,
                          {project_, PostgresValue::Integers(keys), PostgresValue::Integers(items),
                           PostgresValue::Integers(checksums), PostgresValue::ManyBytes(contents)}});
    for (auto* const column : {&keys, &items, &checksums}) column->clear();
    contents.clear();
    bytes = 0;
  }
}

PostgresStatement StatementThatAdds(std::int64_t project, const Generation& generation,
                                    std::string_view token) {
  const auto text = [](const std::string& value) { return PostgresValue::Text(value); };
  return {kAddGeneration,
          {project, generation.number, text(generation.time), text(generation.user), text(generation.host),
           text(generation.program), text(generation.occasion), PostgresValue::Bytes(token)}};
}

}  // namespace vanzet::vdm
