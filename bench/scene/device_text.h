#pragma once

#include <array>
#include <optional>

#include "modeller/exchange.h"
#include "project/definition.h"

namespace vanzet::scene {

/// A device as the simulation finds it in a definition.
struct DeviceText {
  modeller::Body body;
  geometry::Point3d plug;    ///< where it is put on what holds it; the origin when no marker tells it
  geometry::Point3d socket;  ///< where it holds what comes next
  double reach;  ///< along the axis, how far its foot is behind its origin: the third number of its placement
};

/// The device of an operation from 5 to 9: the face sets of its VRML text, but for the markers. Nothing when
/// the text is empty or has no facets. Refused, with the operation's label, when it is no VRML.
Result<std::optional<DeviceText>> ReadDeviceText(const project::Definition& definition, std::size_t operation,
                                                 const modeller::Exchange& exchange);

}  // namespace vanzet::scene
