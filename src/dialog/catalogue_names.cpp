#include "dialog/catalogue_names.h"

#include <string>
#include <utility>
#include <vector>

#include "macro/device_record.h"

namespace vanzet::dialog {

namespace {

view::ListedDevice Listed(const CDevice& catalogue, const std::string& name) {
  DeviceParams params;
  if (catalogue.HasDevice(name)) UnpackDeviceParams(params, catalogue.ValueLineOf(name));
  view::ListedDevice device = {.type = params.type};
  for (std::size_t i = 0; i < kDeviceReals.size(); ++i) device.values.at(i) = params.*kDeviceReals.at(i);
  return device;
}

void AddDevices(const CDevice& catalogue, const std::vector<std::string>& names, Controls& controls,
                std::int32_t combo) {
  std::vector<view::ListedDevice> devices = controls.Of(combo).devices;
  for (const std::string& name : names) devices.push_back(Listed(catalogue, name));
  controls.AddEntries(combo, names);
  controls.SetDevices(combo, std::move(devices));
}

}  // namespace

void AddNamesOfType(const CDevice& catalogue, std::int32_t type, Controls& controls, std::int32_t combo) {
  std::vector<std::string> names;
  try {
    catalogue.NamesOfType(type, names);
  } catch (const std::out_of_range& error) {
    AddDevices(catalogue, names, controls, combo);
    throw OddCatalogue(error.what());
  }
  AddDevices(catalogue, names, controls, combo);
}

void ReadCatalogueDevice(const CDevice& catalogue, const view::Control& combo, DeviceParams& params) {
  params = {};
  if (combo.selected < 0) return;
  const std::string& name = combo.items[static_cast<std::size_t>(combo.selected)];
  if (catalogue.HasDevice(name)) UnpackDeviceParams(params, catalogue.ValueLineOf(name));
}

}  // namespace vanzet::dialog
