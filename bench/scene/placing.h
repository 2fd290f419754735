#pragma once

#include <optional>
#include <vector>

#include "scene/device_text.h"
#include "scene/equipment.h"
#include "scene/scene.h"

namespace vanzet::scene {

/// The bodies of one spindle before they are placed.
struct SpindleThings {
  std::optional<DeviceText> clamp, jaw;
  std::optional<modeller::Body> billet, finishPart;
  std::optional<geometry::Region> billetProfile, finishPartProfile;
};

/// Places along the axis of a spindle, in its own space: x along its axis, away from the spindle, the
/// machine's datum at 0.
struct Stations {
  double face;         ///< the working face of the clamp device
  double holderFront;  ///< of the jaws, or of the device without jaws
  double stockFront;   ///< the foremost point of the billet
};
Stations StationsOf(const Spindle& spindle, const SpindleThings& things);

/// The radius that the values of a definition hold the billet at: its outside, or its bore when the jaws
/// clamp inside. 0 when they do not say.
double DefinedHeldRadius(const Spindle& spindle);

/// The radius that the jaws hold: the billet's outside, or its bore when they clamp inside. Without a billet
/// it is a third of the device.
double HeldRadius(const Spindle& spindle, const SpindleThings& things);

/// The radius that a steady rest touches: the billet's outside, also where the jaws hold its bore.
double RestedRadius(const Spindle& spindle, const SpindleThings& things);

/// The bodies and marks of a spindle in its own space; `name` is "main" or "sub".
Scene PlaceSpindle(const Spindle& spindle, const SpindleThings& things, const std::string& name);

/// The placement that turns a body about the vertical, so that it faces the main spindle, with its origin at
/// `x`.
geometry::Matrix FacingFrom(double x);

/// The extents of a body where it is placed, along the axis and across it.
Result<geometry::Box3d> ExtentsOf(const SceneBody& body);

}  // namespace vanzet::scene
