#pragma once

#include <array>
#include <optional>

#include "modeller/exchange.h"
#include "project/definition.h"

namespace vanzet::scene {

/// A device as the definition has it for the simulation.
struct DeviceText {
  modeller::Body body;
  geometry::Point3d plug;    ///< the point that is put on its holder; the origin where no marker is
  geometry::Point3d socket;  ///< the point where it holds the next body
  double
      reach;  ///< the distance along the axis from its foot to its origin: the third number of its placement
};

/// The device of an operation from 5 to 9: the face sets of its VRML text without the markers. Nothing when
/// the text is empty or has no facets. Fails when the text is not VRML; the fault has the operation's label.
Result<std::optional<DeviceText>> ReadDeviceText(const project::Definition& definition, std::size_t operation,
                                                 const modeller::Exchange& exchange);

}  // namespace vanzet::scene
