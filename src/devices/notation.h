#pragma once

#include "devices/device.h"

/// Short names for the rows of the kinds' files, and what several kinds share.
namespace vanzet::devices::notation {

inline constexpr Unit kMm = Unit::kMillimetre;
inline constexpr Unit kDeg = Unit::kDegree;

using enum Entry;
using enum Drawn;
using enum MeasureKind;
using enum Where;

inline constexpr const char* kStored = "No effect on the shape";

/// The width of the block that replaces a missing jaw before a chuck and a face driver: a thin plate.
inline constexpr std::string_view kThinPlate = "2.05";

/// The value of an own device: how far it is held behind its working face.
inline constexpr Letter kOwnLetters[] = {{'B', kMm, kClosed, kNever, ""}};

}  // namespace vanzet::devices::notation
