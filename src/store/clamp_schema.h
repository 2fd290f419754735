#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

/// The 18 operations of a clamp definition, the equipment of one spindle spur.
namespace vanzet {

inline constexpr std::int32_t kClampOperations = 18;

/// The version of the schema, as a number and as the text of its item. Definitions without a version item
/// have the version 0.
inline constexpr std::int32_t kClampVersion = 100;
inline constexpr std::string_view kClampVersionText = "100";

/// The operations by number. Those that hold simulation data: docs/formats/definition.md.
namespace clamp_operation {
inline constexpr std::int32_t kMainSpindle = 1;
inline constexpr std::int32_t kSubSpindle = 2;
inline constexpr std::int32_t kDatum = 3;
inline constexpr std::int32_t kBezel = 4;
inline constexpr std::int32_t kMainClampDevice = 5;
inline constexpr std::int32_t kMainJaw = 6;
inline constexpr std::int32_t kSubClampDevice = 7;
inline constexpr std::int32_t kSubJaw = 8;
inline constexpr std::int32_t kCenter = 9;
inline constexpr std::int32_t kFinishPartMain = 16;
inline constexpr std::int32_t kFinishPartSub = 17;
}  // namespace clamp_operation

/// The sections of a spindle's operation.
namespace spindle_section {
inline constexpr std::int32_t kClampDevice = 1;
inline constexpr std::int32_t kJaw = 2;
inline constexpr std::int32_t kBillet = 3;
}  // namespace spindle_section

/// The operation of a spindle: 0 is the main spindle, all else the sub spindle.
inline std::int32_t SpindleOperation(std::int32_t spindle) {
  return spindle == 0 ? clamp_operation::kMainSpindle : clamp_operation::kSubSpindle;
}

/// The place of a device in a definition: its name is item 0 of the section, its values are item 1.
struct DevicePlace {
  std::int32_t operation;
  std::int32_t section;
};

inline DevicePlace ClampDevicePlace(std::int32_t spindle) {
  return {SpindleOperation(spindle), spindle_section::kClampDevice};
}
inline DevicePlace JawPlace(std::int32_t spindle) {
  return {SpindleOperation(spindle), spindle_section::kJaw};
}
/// Operation 10; without a sub spindle the place of the sub spindle's clamp device, operation 2.
inline DevicePlace CenterPlace(bool subSpindleAvailable) {
  return {(subSpindleAvailable ? 8 : 0) + 2, 1};
}

/// The first items of a new section; "0" means a value that is not given yet.
using SectionItems = std::span<const std::string_view>;

/// One operation as it is made. Section 0 always exists and names the operation.
struct ClampOperation {
  std::array<std::string_view, 2> head;                 ///< section 0: the label, and one more or nothing
  std::int32_t kind;                                    ///< the header's kind; the flag is always 1
  std::array<std::optional<SectionItems>, 3> sections;  ///< 1 to 3; nothing: no such section

  SectionItems Head() const { return {head.data(), head[1].empty() ? std::size_t{1} : head.size()}; }
};

/// All operations, by number.
std::span<const ClampOperation, kClampOperations> ClampOperations();

}  // namespace vanzet
