#include "catalogue/device_rows.h"

#include <algorithm>
#include <map>
#include <utility>

namespace vanzet::catalogue {
namespace {

/// A name, and how many rows before have it: a file may have a name twice.
using Key = std::pair<std::string_view, int>;

/// Counts how often a name has occurred.
class KeyMaker {
 public:
  Key operator()(std::string_view name) { return {name, occurrences_[name]++}; }

 private:
  std::map<std::string_view, int> occurrences_;
};

using Index = std::map<Key, const DeviceRow*>;

Index IndexOf(const DeviceRows& rows) {
  Index index;
  KeyMaker keyOf;
  for (const DeviceRow& row : rows) index.emplace(keyOf(row.name), &row);
  return index;
}

const DeviceRow* Find(const Index& index, const Key& key) {
  const auto found = index.find(key);
  return found == index.end() ? nullptr : found->second;
}

std::string FiguresText(const MakerJson* figures) {
  return figures == nullptr ? "" : figures->dump(-1, ' ', false, MakerJson::error_handler_t::replace);
}

/// The lines of a device, whole, so that those of another one can follow.
std::string WholeLines(const Entry& entry) {
  std::string lines(entry.bytes);
  if (!lines.ends_with('\n')) lines += "\n";
  return entry.hasValues ? lines : lines + "\n";
}

/// The rows without positions: the devices in their order, and then maker data without a device.
DeviceRows UnplacedRows(const Shop& shop) {
  DeviceRows rows;
  rows.reserve(shop.catalogue.entries().size());
  KeyMaker keyOf;
  for (const Entry& entry : shop.catalogue.entries()) {
    const bool isFirst = keyOf(entry.name).second == 0;
    rows.push_back({0, entry.name, WholeLines(entry),
                    isFirst ? FiguresText(shop.maker.Find(entry.name)) : std::string()});
  }
  for (const std::string& name : shop.maker.Devices()) {
    if (shop.catalogue.Find(name) == nullptr)
      rows.push_back({0, name, "", FiguresText(shop.maker.Find(name))});
  }
  return rows;
}

std::int64_t LastPosition(const DeviceRows& rows) {
  std::int64_t last = 0;
  for (const DeviceRow& row : rows) last = std::max(last, row.position);
  return last;
}

void Sort(DeviceRows& rows) {
  std::ranges::sort(rows, {}, &DeviceRow::position);
}

/// Merges one of the two parts of a row. Returns false when both sides changed it in different ways.
bool TakePart(std::string& mine, const std::string& base, const std::string& other) {
  if (other == base || other == mine) return true;
  const bool isUnchanged = mine == base;
  mine = other;
  return isUnchanged;
}

/// Merges a device that the other side has; false for a conflict.
bool TakeRow(std::map<Key, DeviceRow>& mine, std::int64_t& last, const Key& key, const DeviceRow* base,
             const DeviceRow& other) {
  const DeviceRow none{.name = other.name};
  const DeviceRow& from = base == nullptr ? none : *base;
  const auto found = mine.find(key);
  if (found == mine.end()) {
    const bool isUnchanged = base != nullptr && base->lines == other.lines && base->figures == other.figures;
    if (!isUnchanged) mine.emplace(key, DeviceRow{++last, other.name, other.lines, other.figures});
    return isUnchanged || base == nullptr;
  }
  const bool areLinesTaken = TakePart(found->second.lines, from.lines, other.lines);
  return TakePart(found->second.figures, from.figures, other.figures) && areLinesTaken;
}

/// Removes a device that the other side removed; false where these rows changed it.
bool RemoveRow(std::map<Key, DeviceRow>& mine, const Key& key, const DeviceRow& base) {
  const auto found = mine.find(key);
  if (found == mine.end()) return true;
  if (found->second.lines != base.lines || found->second.figures != base.figures) return false;
  mine.erase(found);
  return true;
}

}  // namespace

DeviceRows RowsOf(const Shop& shop, const DeviceRows& former) {
  DeviceRows rows = UnplacedRows(shop);
  const Index before = IndexOf(former);
  std::int64_t last = LastPosition(former);
  KeyMaker keyOf;
  for (DeviceRow& row : rows) {
    const DeviceRow* const found = Find(before, keyOf(row.name));
    row.position = found == nullptr ? ++last : found->position;
  }
  Sort(rows);
  return rows;
}

std::string LinesOf(const DeviceRows& rows) {
  std::string text;
  for (const DeviceRow& row : rows) text += row.lines;
  return text;
}

Result<Shop> ShopOfRows(const DeviceRows& rows, const std::filesystem::path& file) {
  MakerFigures figures;
  for (const DeviceRow& row : rows) {
    if (!row.figures.empty()) figures.emplace_back(row.name, row.figures);
  }
  Shop shop{.file = file, .catalogue = Catalogue::Read(LinesOf(rows))};
  VANZET_TRY(shop.maker, MakerData::OfFigures(figures, shop.MakerFile().string()));
  return shop;
}

RowChanges ChangesBetween(const DeviceRows& before, const DeviceRows& now) {
  RowChanges changes;
  auto former = before.begin();
  for (const DeviceRow& row : now) {
    for (; former != before.end() && former->position < row.position; ++former)
      changes.ended.push_back(*former);
    const bool isThere = former != before.end() && former->position == row.position;
    if (isThere && *former != row) changes.ended.push_back(*former);
    if (!isThere || *former != row) changes.added.push_back(row);
    if (isThere) ++former;
  }
  changes.ended.insert(changes.ended.end(), former, before.end());
  return changes;
}

std::vector<std::string> TakeChanges(DeviceRows& rows, const DeviceRows& base, const DeviceRows& other) {
  std::vector<std::string> conflicts;
  std::int64_t last = std::max({LastPosition(rows), LastPosition(base), LastPosition(other)});
  std::map<Key, DeviceRow> mine;
  for (const auto& [key, row] : IndexOf(rows)) mine.emplace(key, *row);
  const Index before = IndexOf(base), after = IndexOf(other);
  KeyMaker keyOf;
  for (const DeviceRow& row : other) {
    const Key key = keyOf(row.name);
    if (!TakeRow(mine, last, key, Find(before, key), row)) conflicts.push_back(row.name);
  }
  for (const auto& [key, row] : before) {
    if (!after.contains(key) && !RemoveRow(mine, key, *row)) conflicts.push_back(row->name);
  }
  DeviceRows merged;
  for (auto& [key, row] : mine) merged.push_back(std::move(row));
  Sort(merged);
  rows = std::move(merged);
  return conflicts;
}

}  // namespace vanzet::catalogue
