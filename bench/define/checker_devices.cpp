#include "define/checker.h"

#include <algorithm>

#include "base/near_words.h"
#include "devices/solid_check.h"

// Devices: those of the catalogue, and those that a shop keeps in files of their own.

namespace vanzet::define {
namespace {

/// The words of a kind of device in a reason.
std::string WordsOf(const DeviceRow& row) {
  std::string words(row.Key());
  std::ranges::replace(words, '_', ' ');
  return words;
}

/// The keys of an object below a device, if the device has it.
std::vector<std::string> KeysIn(const Place& device, const char* key) {
  std::vector<std::string> keys;
  if (!device.Has(key) || !device.json[key].is_object()) return keys;
  for (const auto& [each, value] : device.json[key].items()) keys.push_back(each);
  return keys;
}

}  // namespace

void Checker::Device(const Place& device, const DeviceRow& row) {
  if (!device.json.is_object()) return void(Refuse(device, "must be an object"));
  const bool isJaw = row.Key() == JawRow().Key();
  Keys known = {"name", "file", "letters"};
  if (row.HasShapes()) known.emplace_back("shape");
  if (isJaw) {
    Fields(device, JawFields(), false, known);
    // The page would show how the spindle clamped before.
    if (!device.Has("count")) device.json["count"] = scene::Spindle().jaws;
    if (!device.Has("inside")) device.json["inside"] = scene::Spindle().clampsInside;
  } else {
    IsObject(device, known);
  }
  if (device.Has("file")) {
    OwnDevice(device, row);
  } else if (device.Has("name")) {
    CatalogueDevice(device, row);
  } else {
    Refuse(device, "needs \"name\" or \"file\"");
  }
}

void Checker::OwnDevice(const Place& device, const DeviceRow& row) {
  for (const char* const key : {"name", "shape"}) {
    if (device.Has(key)) Refuse(device[key], "cannot be combined with \"file\"");
  }
  const Place file = device["file"];
  if (!IsText(file)) return;
  if (file.json.get<std::string>().find('\'') != std::string::npos) {
    return void(Refuse(file, "must not contain an apostrophe, which ends a name in the host's commands"));
  }
  if (surroundings_.ownDevice && !IsOfClass(file, row)) return;
  if (device.Has("letters")) Letters(device, row.kind->own.code, nullptr);
}

/// False when the file cannot be read; one of another class is refused, too.
bool Checker::IsOfClass(const Place& file, const DeviceRow& row) {
  const auto deviceClass = surroundings_.ownDevice(file.json.get<std::string>());
  if (!deviceClass) return Refuse(file, deviceClass.fault().Message());
  if (*deviceClass != row.kind->ownClass) {
    Refuse(file, "holds a " + std::string(WordOf(*deviceClass)) + ", not a " + WordsOf(row));
  }
  return true;
}

void Checker::CatalogueDevice(const Place& device, const DeviceRow& row) {
  if (!IsText(device["name"])) return;
  const auto name = device["name"].json.get<std::string>();
  const auto found = surroundings_.catalogue.find(name);
  const auto* const known = found == surroundings_.catalogue.end() ? nullptr : &found->second;
  const std::int32_t type = TypeOf(device, row, known);
  if (type == 0) return;
  const bool isKnown = known && known->type == type;
  if (!isKnown && !device.Has("letters")) {
    return void(Refuse(device.PathOf("letters"), "is missing, and the catalogue has no " + WordsOf(row) +
                                                     " " + Quoted(name) + NearDevices(row, name)));
  }
  const Keys given = KeysIn(device, "letters");
  if (Letters(device, type, isKnown ? known : nullptr)) Solid(device, type, given);
}

std::string Checker::NearDevices(const DeviceRow& row, const std::string& name) const {
  Keys names;
  for (const auto& [each, params] : surroundings_.catalogue) {
    if (row.kind->HasParametric(params.type)) names.push_back(each);
  }
  return DidYouMean(name, names);
}

/// 0 after a refusal.
std::int32_t Checker::TypeOf(const Place& device, const DeviceRow& row, const DeviceParams* known) {
  if (!row.HasShapes()) return row.kind->First();
  const bool isOfCatalogue = known && row.kind->HasParametric(known->type);
  if (!device.Has("shape") && isOfCatalogue) device.json["shape"] = row.kind->ShapeOf(known->type);
  if (!device.Has("shape")) {
    Refuse(device.PathOf("shape"), "is missing, and the catalogue has no such " + WordsOf(row) +
                                       NearDevices(row, device["name"].json.get<std::string>()));
    return 0;
  }
  const Place shape = device["shape"];
  const auto most = static_cast<double>(row.kind->devices.size());
  return IsValue(shape, std::int32_t(), Quantity{.least = 1, .most = most})
             ? row.TypeOf(shape.json.get<std::int32_t>())
             : 0;
}

bool Checker::Letters(const Place& device, std::int32_t type, const DeviceParams* known) {
  if (!device.Has("letters")) device.json["letters"] = Json::object();
  const Place letters = device["letters"];
  Keys keys;
  for (const devices::Letter& each : devices::LettersOf(type)) keys.emplace_back(1, each.letter);
  if (!IsObject(letters, keys)) return false;
  bool isSound = true;
  for (const devices::Letter& each : devices::LettersOf(type)) {
    const std::string key(1, each.letter);
    if (letters.Has(key)) {
      isSound = IsNumber(letters[key], QuantityOf(each)) && isSound;
    } else if (known != nullptr) {
      letters.json[key] = NumberJson(ValueOf(*known, each.letter));
    } else if (!device.Has("file")) {
      isSound = Refuse(letters.PathOf(key), kMissing);
    }
  }
  return isSound;
}

DeviceParams Checker::InUnitOfForm(DeviceParams params) const {
  for (const devices::Letter& each : devices::LettersOf(params.type)) {
    double& value = params.*kDeviceReals.at(static_cast<std::size_t>(each.letter - 'A'));
    if (each.unit == devices::Unit::kMillimetre) value = RoundedInUnit(value, unit_);
  }
  return params;
}

/// Refuses the first letter of the fault that the form has; the others come from the catalogue.
void Checker::Solid(const Place& device, std::int32_t type, const Keys& given) {
  const Place letters = device["letters"];
  DeviceParams params{.type = type};
  for (const devices::Letter& each : devices::LettersOf(type)) {
    const std::string key(1, each.letter);
    double& value = params.*kDeviceReals.at(static_cast<std::size_t>(each.letter - 'A'));
    if (letters.Has(key)) value = letters[key].json.get<double>();
  }
  const auto fault = devices::FindSolidFault(params, InUnitOfForm(params));
  if (!fault) return;
  const auto named = std::ranges::find_if(fault->letters, [&](char letter) {
    return std::ranges::find(given, std::string(1, letter)) != given.end();
  });
  if (named != fault->letters.end()) return void(Refuse(letters.PathOf({&*named, 1}), fault->reason));
  if (given.empty())
    return void(Refuse(device["name"], "the catalogue has it without a solid: " + fault->reason));
  Refuse(letters, fault->reason);
}

}  // namespace vanzet::define
