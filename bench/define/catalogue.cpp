#include "define/catalogue.h"

#include "define/json.h"
#include "devices/kinds.h"
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

std::optional<OddLine> FirstOddLine(std::istream& catalogue) {
  std::string name, values;
  for (int line = 1; ReadLine(catalogue, name); line += 2) {
    if (!ReadLine(catalogue, values))
      return OddLine{line, "the device " + Quoted(name) + " has no value line"};
    if (devices::KindOf(scene::ReadDeviceParams(values).type) == nullptr) {
      return OddLine{line + 1, "the value line does not begin with the type of a device: " + Quoted(values)};
    }
  }
  return std::nullopt;
}

}  // namespace vanzet::define
