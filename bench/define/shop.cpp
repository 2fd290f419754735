#include "define/shop.h"

#include "scene/equipment.h"

namespace vanzet::define {
namespace {

bool ReadLine(std::istream& text, std::string& line) {
  if (!std::getline(text, line)) return false;
  line.resize(line.find_last_not_of('\r') + 1);
  return true;
}

}  // namespace

std::map<std::string, DeviceParams> ReadShop(std::istream& catalogue) {
  std::map<std::string, DeviceParams> devices;
  std::string name, values;
  while (ReadLine(catalogue, name) && ReadLine(catalogue, values)) {
    devices.try_emplace(name, scene::ReadDeviceParams(values));
  }
  return devices;
}

}  // namespace vanzet::define
