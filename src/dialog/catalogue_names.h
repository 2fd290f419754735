#pragma once

#include <cstdint>

#include "catalogue/device_catalogue.h"
#include "devices/device_params.h"
#include "dialog/controls.h"

namespace vanzet::dialog {

/// Adds the names of a type to a combo. What the look-up throws passes on, with the names found before it
/// added.
void AddNamesOfType(const CDevice& catalogue, std::int32_t type, Controls& controls, std::int32_t combo);

/// Puts the values of the device that the combo's selection names into `params`, and its type; those of no
/// device when none is selected or the catalogue does not know it.
void TakeCatalogueDevice(const CDevice& catalogue, const view::Control& combo, DeviceParams& params);

}  // namespace vanzet::dialog
