#pragma once

#include "vdm/vdm.h"

namespace vanzet::vdm {

/// An open VDM with the one position at which it is read and written.
///
/// Shape    a current record and an item position in it; 0 and 0 at first
/// Errors   a text that is not an item, or a record that cannot be fetched: nothing changes, the position
///          stays
///
/// At a position without a record, such as one past the last, no record is current: reads return the empty
/// text, changes of items and removals do nothing.
class OpenVdm {
 public:
  explicit OpenVdm(Vdm content) : content_(std::move(content)) {}

  /// The number of records.
  std::size_t Size() const { return content_.Size(); }

  /// Makes `record` current and its item 0 the position.
  void Seek(std::int64_t record);

  /// Inserts a new record with the one item `text` before the current one, or after the last when the
  /// position is beyond the end, and makes it current. At a position below 0 it does nothing.
  Result<void> Insert(std::string_view text);

  /// Removes `count` records from the current one on, or as many as exist. The position is then item 0 of the
  /// record that moved down.
  void Remove(std::int64_t count);

  /// Moves the item position forward by `count`, to one past the last item at most, and never back.
  Result<void> SingleSeek(std::int64_t count);

  /// Returns the item at the position and advances past it. Past the last item it returns the empty text and
  /// stays. The view is valid until the next change.
  Result<std::string_view> SingleGet();

  /// Inserts an item before the one at the position and advances past it, so that successive calls keep their
  /// order.
  Result<void> SingleAdd(std::string_view text);

  /// Replaces the item at the position, which stays. Past the last item it does nothing.
  Result<void> SingleReplace(std::string_view text);

  /// Removes `count` items from the position on, or as many as exist.
  Result<void> SingleDelete(std::int64_t count);

  const Vdm& content() const { return content_; }

 private:
  bool HasRecord() const;
  /// Requires: there is a current record.
  std::size_t Current() const { return static_cast<std::size_t>(record_); }

  Vdm content_;
  std::int64_t record_ = 0;  ///< the position of the last `Seek`, with or without a record
  std::size_t item_ = 0;     ///< at most the current record's size
};

}  // namespace vanzet::vdm
