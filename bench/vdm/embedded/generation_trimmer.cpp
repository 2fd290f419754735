#include "vdm/embedded/generation_trimmer.h"

#include <algorithm>
#include <vector>

#include "vdm/embedded/schema.h"

namespace vanzet::vdm {
namespace {

// The first row of each number is found by the index, however many rows it has.
constexpr std::string_view kNumbers = R"(
  WITH RECURSIVE known(number) AS (
    SELECT min(number) FROM vdm
    UNION ALL
    SELECT (SELECT min(number) FROM vdm WHERE number>known.number) FROM known WHERE known.number IS NOT NULL)
  SELECT number FROM known WHERE number IS NOT NULL)";
constexpr std::string_view kVersions = "SELECT first, last FROM vdm WHERE number=?1 ORDER BY last DESC";
constexpr std::string_view kRemoveRecords = R"(
  DELETE FROM record WHERE key IN (
    SELECT record FROM place WHERE vdm=?1 AND last<?2
    EXCEPT SELECT record FROM place WHERE vdm=?1 AND last>=?2))";
constexpr std::string_view kRemovePlaces = "DELETE FROM place WHERE vdm=?1 AND last<?2";
constexpr std::string_view kRemoveVersions = "DELETE FROM vdm WHERE number=?1 AND last<?2";
constexpr std::string_view kNoteCut = "INSERT INTO vdm(number, last, first) VALUES(?1, ?2 - 1, 0)";
constexpr std::string_view kRemoveGenerations = R"(
  DELETE FROM generation WHERE number<?1 AND number NOT IN (
    SELECT first FROM vdm UNION SELECT last + 1 FROM vdm WHERE last<9223372036854775807))";

struct Version {
  std::int64_t first, last;
};

Result<std::vector<std::int64_t>> Numbers(SqliteConnection& connection) {
  std::vector<std::int64_t> numbers;
  VANZET_DO(connection.Run(kNumbers, {}, [&](const SqliteRow& row) -> Result<void> {
    numbers.push_back(row.Integer(0));
    return {};
  }));
  return numbers;
}

/// The generations that changed a VDM, the newest first; the last one is that of the oldest state.
Result<std::vector<std::int64_t>> ChangesOf(SqliteConnection& connection, std::int64_t number) {
  std::vector<std::int64_t> changes;
  std::int64_t next = kNow;  // the first generation of the version after
  VANZET_DO(connection.Run(kVersions, {number}, [&](const SqliteRow& row) -> Result<void> {
    const Version version{row.Integer(0), row.Integer(1)};
    const bool isFollowed = version.last == kNow || version.last + 1 == next;
    if (!isFollowed) changes.push_back(version.last + 1);  // a removal
    if (version.first > 0) changes.push_back(version.first);
    next = version.first;
    return {};
  }));
  return changes;
}

/// Removes the states of a VDM before a generation, and notes that they were there.
Result<void> Cut(SqliteConnection& connection, std::int64_t number, std::int64_t generation) {
  for (const std::string_view sql : {kRemoveRecords, kRemovePlaces, kRemoveVersions, kNoteCut}) {
    VANZET_DO(connection.Run(sql, {number, generation}));
  }
  return {};
}

}  // namespace

Result<void> TrimGenerations(SqliteConnection& connection, std::int64_t generation, std::int64_t keep) {
  constexpr std::int64_t kParts = 8;
  if (generation % (keep / kParts + 1) != 0) return {};
  const auto kept = static_cast<std::size_t>(std::max<std::int64_t>(keep, 1));
  VANZET_TRY(const auto numbers, Numbers(connection));
  bool isTrimmed = false;
  for (const std::int64_t number : numbers) {
    VANZET_TRY(const auto changes, ChangesOf(connection, number));
    if (changes.size() <= kept) continue;
    VANZET_DO(Cut(connection, number, changes[kept - 1]));
    isTrimmed = true;
  }
  if (!isTrimmed) return {};
  return connection.Run(kRemoveGenerations, {generation});
}

}  // namespace vanzet::vdm
