#pragma once

#include <cstdint>
#include <span>

#include "dialog/device_letters.h"

/// What the page of what holds the work can be on, by the node that was selected.
namespace vanzet::dialog {

/// The numbers of the kinds are those of the first type of each.
namespace device_kind {
inline constexpr std::int32_t kNone = 0;
inline constexpr std::int32_t kJaw = 5;
inline constexpr std::int32_t kCenter = 13;
}  // namespace device_kind

struct DeviceKind {
  std::int32_t kind;
  std::span<const TypeRange> types;  ///< those that a record of this kind has
  TypeRange listed;                  ///< those that the catalogue offers
  std::int32_t deviceClass;          ///< what a prepared device's file says of itself
};

/// The row of a kind, or null.
const DeviceKind* FindDeviceKind(std::int32_t kind);

/// Whether a record of that type is one of the kind.
bool IsOfKind(std::int32_t kind, std::int32_t type);

inline bool IsJawType(std::int32_t type) {
  return IsOfKind(device_kind::kJaw, type);
}
inline bool IsCenterType(std::int32_t type) {
  return IsOfKind(device_kind::kCenter, type);
}

/// How a spindle that holds a device of that type clamps: what is written of it besides the device.
struct ClampOptions {
  std::int32_t type;
  bool isInner;
};

/// The options that come with a type, or null where none are written.
const ClampOptions* FixedClampOptions(std::int32_t type);

inline constexpr std::int32_t kFixedJaws = 3;

}  // namespace vanzet::dialog
