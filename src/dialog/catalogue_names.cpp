#include "dialog/catalogue_names.h"

#include <string>
#include <vector>

#include "macro/device_record.h"

namespace vanzet::dialog {

void AddNamesOfType(const CDevice& catalogue, std::int32_t type, Controls& controls, std::int32_t combo) {
  std::vector<std::string> names;
  try {
    catalogue.NamesOfType(type, names);
  } catch (const std::out_of_range& error) {
    controls.AddEntries(combo, names);
    throw OddCatalogue(error.what());
  }
  controls.AddEntries(combo, names);
}

void ReadCatalogueDevice(const CDevice& catalogue, const view::Control& combo, DeviceParams& params) {
  params = {};
  if (combo.selected < 0) return;
  const std::string& name = combo.items[static_cast<std::size_t>(combo.selected)];
  if (catalogue.HasDevice(name)) UnpackDeviceParams(params, catalogue.ValueLineOf(name));
}

}  // namespace vanzet::dialog
