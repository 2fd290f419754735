#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <variant>

#include "dialog/controls.h"

/// The exchange between the controls of a page and the record that it works on, by a table of fields.
namespace vanzet::dialog {

/// A control and the field that it is bound to: edits to reals and texts, check boxes to flags.
template <class Record>
struct Field {
  std::int32_t control;
  std::variant<double Record::*, std::string Record::*, std::uint8_t Record::*, std::int32_t Record::*>
      member;
};

/// Puts a value into a control, and reads it from there. Read returns false when the control holds none.
void Show(Controls& controls, std::int32_t edit, double value);
void Show(Controls& controls, std::int32_t edit, const std::string& value);
void Show(Controls& controls, std::int32_t check, std::uint8_t value);  ///< ticked for exactly 1
void Show(Controls& controls, std::int32_t check, std::int32_t value);  ///< ticked for all but 0
bool Read(const Controls& controls, std::int32_t edit, double& value);
bool Read(const Controls& controls, std::int32_t edit, std::string& value);
bool Read(const Controls& controls, std::int32_t check, std::uint8_t& value);
bool Read(const Controls& controls, std::int32_t check, std::int32_t& value);

template <class Record>
void ShowRecord(Controls& controls, std::span<const Field<Record>> fields, const Record& record) {
  for (const Field<Record>& field : fields) {
    std::visit([&](auto member) { Show(controls, field.control, record.*member); }, field.member);
  }
}

/// Reads all fields into the record. Returns the edit that does not hold a number where one is required, and
/// leaves the record as it is then.
template <class Record>
std::optional<std::int32_t> ReadRecord(const Controls& controls, std::span<const Field<Record>> fields,
                                       Record& record) {
  Record read = record;
  for (const Field<Record>& field : fields) {
    const bool isRead =
        std::visit([&](auto member) { return Read(controls, field.control, read.*member); }, field.member);
    if (!isRead) return field.control;
  }
  record = read;
  return std::nullopt;
}

}  // namespace vanzet::dialog
