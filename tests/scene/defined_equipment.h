#pragma once

#include "devices/device_params.h"

/// Equipment as the module stores it in the definition of spur 0 of the host in force.
namespace vanzet::test {

inline constexpr DeviceParams kChuck = {.type = 1, .A = 80, .B = 90, .C = 22.5};
inline constexpr DeviceParams kHardJaw = {
    .type = 6, .A = 42, .B = 50, .C = 18, .D = 34, .E = 13, .F = 26, .G = 12, .H = 24};
inline constexpr DeviceParams kCollet = {.type = 2, .A = 40, .B = 80, .C = 20, .D = 15, .E = 30, .F = 2};
inline constexpr DeviceParams kCenter = {
    .type = 13, .A = 140, .B = 90, .C = 40, .D = 12, .E = 20, .F = 30, .G = 60};

/// A definition with nothing in it.
void MakeDefinition();

/// Puts a clamp device into a spindle, with a jaw of its own or the stand-in, and makes their 3D data.
void Clamp(std::int32_t spindle, const DeviceParams& device, const DeviceParams& jaw, std::int32_t jaws = 3);

/// A cylinder of a diameter and a length.
void PutBillet(std::int32_t spindle, double diameter, double length, double bore = 0);

void PutCenter(const DeviceParams& center, bool hasSubSpindle);

/// How far the billets stick out, and the origin translations.
struct Datum {
  double outMain = 0, outSub = 0, originMain = 0, originSub = 0;
};
void PutDatum(const Datum& datum);

/// A chuck with three jaws, a bar and a finish part from the figure "shaft"; against it a collet with a
/// billet.
void DefineTwoSpindles();

/// A chuck with three jaws and a long billet, and a center that supports it, on a machine without sub
/// spindle.
void DefineWithCenter();

}  // namespace vanzet::test
