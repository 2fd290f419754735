#include "define/catalogue.h"

#include <functional>

#include <nlohmann/json.hpp>

#include "base/number_text.h"
#include "define/tables.h"
#include "scene/equipment.h"

namespace vanzet::define {
namespace {

bool ReadLine(std::istream& text, std::string& line) {
  if (!std::getline(text, line)) return false;
  line.resize(line.find_last_not_of('\r') + 1);
  return true;
}

/// Calls for every device of a form.
void ForEachDevice(const Json& form, const std::function<void(const DeviceRow&, const Json&)>& call) {
  const auto in = [&](const Json& place, const DeviceRow& row) {
    if (place.contains(std::string(row.Key()))) call(row, place[std::string(row.Key())]);
  };
  for (const Json& spur : form["spurs"]) {
    for (const std::string_view key : kSpindleKeys) {
      if (!spur.contains(std::string(key))) continue;
      for (const DeviceRow& row : ClampRows()) in(spur[std::string(key)], row);
      in(spur[std::string(key)], JawRow());
    }
    in(spur, CenterRow());
  }
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

std::string CatalogueText(const Json& form) {
  std::string text;
  ForEachDevice(form, [&](const DeviceRow& row, const Json& device) {
    if (!device.contains("name")) return;
    const std::int32_t shape = row.HasShapes() ? device["shape"].get<std::int32_t>() : 1;
    const std::int32_t type = row.TypeOf(shape);
    text += device["name"].get<std::string>() + "\n" + std::to_string(type);
    // A type of the catalogue has letters from A on without a gap, as a value line has them.
    for (const devices::Letter& each : devices::LettersOf(type)) {
      text += " " + ExactText(device["letters"][std::string(1, each.letter)].get<double>());
    }
    text += "\n";
  });
  return text;
}

}  // namespace vanzet::define
