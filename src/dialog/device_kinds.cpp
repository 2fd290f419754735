#include "dialog/device_kinds.h"

#include <algorithm>

namespace vanzet::dialog {
namespace {

constexpr TypeRange kChucks[] = {{1, 1}, {103, 103}, {109, 109}};
constexpr TypeRange kCollets[] = {{2, 2}, {105, 105}, {111, 111}};
constexpr TypeRange kMandrels[] = {{3, 3}, {106, 106}, {112, 112}};
constexpr TypeRange kFaceDrivers[] = {{4, 4}, {107, 107}, {113, 113}};
constexpr TypeRange kJaws[] = {{5, 12}, {104, 104}, {110, 110}};
constexpr TypeRange kCenters[] = {{13, 14}, {115, 115}};

// clang-format off
constexpr DeviceKind kKinds[] = {
    // kind                types         listed    class
    { 1,                    kChucks,      { 1,  1}, 0 },
    { 2,                    kCollets,     { 2,  2}, 0 },
    { 3,                    kMandrels,    { 3,  3}, 0 },
    { 4,                    kFaceDrivers, { 4,  4}, 0 },
    { device_kind::kJaw,    kJaws,        { 5, 12}, 1 },
    { device_kind::kCenter, kCenters,     {13, 14}, 3 },
};

// A mandrel clamps from inside.
constexpr ClampOptions kOptions[] = {
    {  2, false}, {  4, false}, {105, false}, {107, false}, {111, false}, {113, false},
    {  3, true},  {106, true},  {112, true},
};
// clang-format on

}  // namespace

const DeviceKind* FindDeviceKind(std::int32_t kind) {
  const auto* const row = std::ranges::find(kKinds, kind, &DeviceKind::kind);
  return row == std::end(kKinds) ? nullptr : row;
}

bool IsOfKind(std::int32_t kind, std::int32_t type) {
  const DeviceKind* const row = FindDeviceKind(kind);
  return row != nullptr && HasType(row->types, type);
}

const ClampOptions* FixedClampOptions(std::int32_t type) {
  const auto* const row = std::ranges::find(kOptions, type, &ClampOptions::type);
  return row == std::end(kOptions) ? nullptr : row;
}

}  // namespace vanzet::dialog
