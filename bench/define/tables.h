#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "devices/kinds.h"
#include "scene/equipment.h"
#include "scene/own_device.h"

/// The JSON form of a definition: its keys, the values of the records that they stand for, and the nodes and
/// controls of the dialog by which they are entered. Reader, writer and events all use these tables.
/// Source: docs/formats/definition-json.md
namespace vanzet::define {

/// The largest length: farther away the host refuses a coordinate. 10 km.
inline constexpr double kLargestLength = 1e7;

/// The largest number of another sort that the dialog's edits carry without loss of their six decimals.
inline constexpr double kLargestNumber = 1e9;

/// The bytes that a text may have: a line of the catalogue and an item of a definition hold it.
inline constexpr std::size_t kLongestText = 1000;

/// The numbers that a value may have.
struct Quantity {
  devices::Unit unit = devices::Unit::kNone;
  double least = -kLargestNumber;
  double most = kLargestNumber;
  bool isAbove = false;  ///< the least number itself is refused
};

inline constexpr Quantity kPosition = {devices::Unit::kMillimetre, -kLargestLength, kLargestLength};
inline constexpr Quantity kLength = {devices::Unit::kMillimetre, 0, kLargestLength};
inline constexpr Quantity kLengthAbove0 = {devices::Unit::kMillimetre, 0, kLargestLength, true};
inline constexpr Quantity kTurn = {devices::Unit::kDegree};
inline constexpr Quantity kAngleAbove0 = {devices::Unit::kDegree, 0, 180, true};

/// The numbers that a letter of a device may have.
Quantity QuantityOf(const devices::Letter& letter);

/// One value of a record.
template <class Record>
struct Field {
  std::string_view key;
  std::variant<double Record::*, std::int32_t Record::*, bool Record::*, std::string Record::*> member;
  std::int32_t control;
  std::string_view description;
  Quantity quantity = {};
  bool isRequired = false;
  bool isOfMainAlone = false;  ///< the sub spindle has no such value
};

/// One kind of a record: its word in the form, and its page for each spindle.
template <class Record>
struct Kind {
  std::string_view word;
  std::int32_t type;
  std::span<const Field<Record>> fields;
  std::array<std::int32_t, 2> nodes;
  std::int32_t select;  ///< the button that stores it; 0: no button does
};

/// A record of a spindle that is of one kind of several.
template <class Record>
struct Part {
  std::string_view key;
  Record scene::Spindle::*member;
  std::span<const Kind<Record>> kinds;
  bool isPicked;                            ///< the page can pick the lengths of a solid
  std::array<std::int32_t, 2> deleteNodes;  ///< whose menus delete it
};

const Part<scene::Billet>& BilletPart();
const Part<scene::FinishPart>& FinishedPart();

/// The values of a jaw that say how the spindle clamps with it.
std::span<const Field<scene::Spindle>> JawFields();

/// The datum of the main spindle, and of the sub spindle.
std::span<const Field<scene::Spindle>> DatumFields(std::size_t spindle);

/// A kind of device in the form.
struct DeviceRow {
  const devices::Kind* kind;
  std::array<std::int32_t, 2> nodes;

  std::string_view Key() const { return kind->word; }

  /// Several types of the catalogue are distinguished by their shape, from 1.
  bool HasShapes() const { return kind->devices.size() > 1; }

  /// The type of a shape. Requires: from 1 to the number of types.
  std::int32_t TypeOf(std::int32_t shape) const {
    return kind->devices[static_cast<std::size_t>(shape) - 1].code;
  }
};

/// The kinds of which a spindle holds one.
std::span<const DeviceRow> ClampRows();
const DeviceRow& JawRow();
const DeviceRow& CenterRow();

inline constexpr std::string_view kSpindleKeys[] = {"main", "sub"};

/// The key of the kind of a record.
inline constexpr const char* kKind = "kind";

/// The kind with that word, or null.
template <class Record>
const Kind<Record>* FindKind(const Part<Record>& part, std::string_view word) {
  for (const Kind<Record>& kind : part.kinds) {
    if (kind.word == word) return &kind;
  }
  return nullptr;
}

}  // namespace vanzet::define
