#pragma once

#include "vdm/vdm.h"

namespace vanzet::vdm {

/// A VDM that is open, with the one position that reading and writing go by.
///
/// Shape    a current record and an item position in it; 0 and 0 at first
/// Errors   a text that is no item, or a record that cannot be fetched: nothing changes, the position stays
///
/// A position where no record stands, one past the last included, leaves no current record: reads give the
/// empty text, changes of items and removals do nothing.
class OpenVdm {
 public:
  explicit OpenVdm(Vdm content) : content_(std::move(content)) {}

  /// The number of records.
  std::size_t Size() const { return content_.Size(); }

  /// Makes `record` current and its item 0 the position.
  void Seek(std::int64_t record);

  /// Puts a new record with the one item `text` before the current one, or behind the last when the position
  /// is beyond the end, and makes it current. A position below 0 does nothing.
  Result<void> Insert(std::string_view text);

  /// Removes `count` records from the current one on, or as many as there are. The position is then item 0 of
  /// the record that moved down.
  void Remove(std::int64_t count);

  /// Moves the item position forward by `count`, to one past the last item at most; never back.
  Result<void> SingleSeek(std::int64_t count);

  /// The item at the position, and steps behind it. Past the last item it gives the empty text and stays.
  /// The view is valid until the next change.
  Result<std::string_view> SingleGet();

  /// Puts an item before the one at the position and stands behind it: calls in a row keep their order.
  Result<void> SingleAdd(std::string_view text);

  /// Replaces the item at the position, which stays. Past the last item nothing happens.
  Result<void> SingleReplace(std::string_view text);

  /// Removes `count` items from the position on, or as many as there are.
  Result<void> SingleDelete(std::int64_t count);

  const Vdm& content() const { return content_; }

 private:
  bool HasRecord() const;
  /// Requires: there is a current record.
  std::size_t Current() const { return static_cast<std::size_t>(record_); }

  Vdm content_;
  std::int64_t record_ = 0;  ///< where `Seek` went, a record or not
  std::size_t item_ = 0;     ///< at most the current record's size
};

}  // namespace vanzet::vdm
