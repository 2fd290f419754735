#pragma once

#include <cstdint>
#include <stdexcept>

#include "catalogue/device_catalogue.h"
#include "devices/device_params.h"
#include "dialog/controls.h"

namespace vanzet::dialog {

/// A catalogue ends with a name that has no values. A handler that comes to it ends there.
class OddCatalogue : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Adds the names of a type to a combo. Throws OddCatalogue at the end of an odd catalogue, after adding the
/// names before it.
void AddNamesOfType(const CDevice& catalogue, std::int32_t type, Controls& controls, std::int32_t combo);

/// Sets `params` to the values and the type of the device that is selected in the combo; clears it when none
/// is selected or the catalogue does not have the device.
void ReadCatalogueDevice(const CDevice& catalogue, const view::Control& combo, DeviceParams& params);

}  // namespace vanzet::dialog
