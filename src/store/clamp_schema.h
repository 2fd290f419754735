#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

/// The 18 operations of a clamp definition, the equipment of one spindle spur.
namespace vanzet {

/// The version of the schema. Definitions without a version item have the version 0.
inline constexpr std::int32_t kClampVersion = 100;

inline constexpr std::int32_t kClampOperations = 18;

/// The items that a section gets when it is made; "0" stands for a value not yet given.
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
