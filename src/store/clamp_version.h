#pragma once

#include <cstdint>
#include <string_view>

namespace vanzet {

/// The version of the clamp schema, as a number and as the text of its item. Definitions without a version
/// item have the version 0.
inline constexpr std::int32_t kClampVersion = 100;
inline constexpr std::string_view kClampVersionText = "100";

}  // namespace vanzet
