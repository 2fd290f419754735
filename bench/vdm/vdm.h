#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "vdm/record.h"

namespace vanzet::vdm {

/// The number that a VDM is known by.
enum class Number : std::uint32_t {};

/// Converts the number of a caller. Fails when it is below 0 or larger than an integer variable of a host.
Result<Number> NumberFrom(std::int64_t value);

/// "VDM 1000", as faults name it.
std::string NameOf(Number number);

/// The place of a record in a store; only the store that issued it knows what it means.
enum class RecordKey : std::int64_t {};

/// Fetches a record from the store that keeps it.
using RecordLoader = std::function<Result<Record>(RecordKey)>;

/// A VDM in memory: an ordered list of records.
///
/// Shape    records from 0, each a list of items from 0
/// Owns     the records that were read or edited; others stay in their store until then. A copy shares them
///          until one of the two edits a record
/// Errors   a record that cannot be fetched is a fault on each request; the store keeps it unchanged
class Vdm {
 public:
  /// One record and the facts that a store needs to keep it.
  struct Entry {
    std::optional<RecordKey> key = {};        ///< nothing: not in a store yet
    bool isChanged = false;                   ///< it differs from what the store keeps under the key
    mutable std::shared_ptr<Record> content;  ///< null until it is fetched; shared with copies of the VDM

    bool MustBeWritten() const { return isChanged || !key; }
  };

  /// An empty VDM that is not in a store yet.
  Vdm() = default;

  /// A VDM whose records a store keeps under `keys`. It can be used as long as `load` can be called.
  Vdm(const std::vector<RecordKey>& keys, RecordLoader load);

  std::size_t Size() const { return entries_.Size(); }

  /// The record's content, valid until the record is edited or removed. Requires: `record` is below the size.
  Result<const Record*> Read(std::size_t record) const;

  /// The same, to be edited.
  Result<Record*> Edit(std::size_t record);

  /// Inserts a record before the one at `at`. Requires: `at` is at most the size.
  void Insert(std::size_t at, Record content);

  /// Removes `count` records from `at` on. Requires: that many exist.
  void Remove(std::size_t at, std::size_t count);

  /// The same content, wholly in memory and independent of any store.
  Result<Vdm> Copy() const;

  /// True when a store would have something to write.
  bool IsChanged() const { return isChanged_; }

  /// Requires: `record` is below the size.
  const Entry& EntryOf(std::size_t record) const { return entries_[record]; }

 private:
  GapBuffer<Entry> entries_;
  RecordLoader load_;
  bool isChanged_ = true;
};

}  // namespace vanzet::vdm
