#pragma once

#include "dialog/page.h"

namespace vanzet::dialog {

/// The controls of the page of what holds the work.
namespace clamp_elem {
inline constexpr std::int32_t kBrowse = 2000;
inline constexpr std::int32_t kPath = 2021;
inline constexpr std::int32_t kDeviceList = 2124;
inline constexpr std::int32_t kInnerChucking = 2141;
inline constexpr std::int32_t kPicture = 2146;
inline constexpr std::int32_t kSelectParametric = 2154;
inline constexpr std::int32_t kSelectOwn = 2155;
inline constexpr std::int32_t kJawsLabel = 2179;
inline constexpr std::int32_t kJawsEdit = 2180;
inline constexpr std::int32_t kJawSpin = 2181;
}  // namespace clamp_elem

extern const PageTemplate kClampElemTemplate;

}  // namespace vanzet::dialog
