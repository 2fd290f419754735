#pragma once

#include <cstdint>
#include <span>

#include "dialog/controls.h"

namespace vanzet::dialog {

/// The dialog's own controls and commands.
namespace control {
inline constexpr std::int32_t kOk = 1;
inline constexpr std::int32_t kCancel = 2;
inline constexpr std::int32_t kHelp = 2012;
inline constexpr std::int32_t kSpurs = 2020;
inline constexpr std::int32_t kLoad = 2144;
inline constexpr std::int32_t kPageArea = 2151;
inline constexpr std::int32_t kSave = 2153;
inline constexpr std::int32_t kDelete = 51000;  ///< an entry of the tree's menu
}  // namespace control

/// Template 2160, without the tree.
std::span<const ControlTemplate> DialogTemplate();

}  // namespace vanzet::dialog
