#include "define/checker.h"

#include <algorithm>

// Devices: those of the catalogue, and those that a shop keeps in files of their own.

namespace vanzet::define {
namespace {

/// The words of a kind of device in a reason.
std::string WordsOf(const DeviceRow& row) {
  std::string words(row.Key());
  std::ranges::replace(words, '_', ' ');
  return words;
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
  const auto deviceClass = surroundings_.ownDevice(file.json.get<std::string>());
  if (!deviceClass) return void(Refuse(file, deviceClass.fault().Message()));
  if (*deviceClass != row.kind->ownClass) {
    Refuse(file, "holds a " + std::string(WordOf(*deviceClass)) + ", not a " + WordsOf(row));
  }
  if (device.Has("letters")) Letters(device, row.kind->own.code, nullptr);
}

void Checker::CatalogueDevice(const Place& device, const DeviceRow& row) {
  if (!IsText(device["name"])) return;
  const auto name = device["name"].json.get<std::string>();
  const auto known = surroundings_.catalogue(name);
  const std::int32_t type = TypeOf(device, row, known);
  if (type == 0) return;
  const bool isKnown = known && known->type == type;
  if (!isKnown && !device.Has("letters")) {
    return void(Refuse(device.PathOf("letters"),
                       "is missing, and the catalogue has no " + WordsOf(row) + " " + Quoted(name)));
  }
  Letters(device, type, isKnown ? &*known : nullptr);
  NameIsOfOneType(name, device.PathOf("name"), type);
}

/// 0 after a refusal.
std::int32_t Checker::TypeOf(const Place& device, const DeviceRow& row,
                             const std::optional<DeviceParams>& known) {
  if (!row.HasShapes()) return row.kind->First();
  const bool isOfCatalogue = known && row.kind->HasParametric(known->type);
  if (!device.Has("shape") && isOfCatalogue) device.json["shape"] = row.kind->ShapeOf(known->type);
  if (!device.Has("shape")) {
    Refuse(device.PathOf("shape"), "is missing, and the catalogue has no such " + WordsOf(row));
    return 0;
  }
  const Place shape = device["shape"];
  const auto most = static_cast<double>(row.kind->devices.size());
  return IsValue(shape, std::int32_t(), {1, most}) ? row.TypeOf(shape.json.get<std::int32_t>()) : 0;
}

void Checker::Letters(const Place& device, std::int32_t type, const DeviceParams* known) {
  if (!device.Has("letters")) device.json["letters"] = Json::object();
  const Place letters = device["letters"];
  Keys keys;
  for (const devices::Letter& each : devices::LettersOf(type)) keys.emplace_back(1, each.letter);
  if (!IsObject(letters, keys)) return;
  for (const std::string& key : keys) {
    if (letters.Has(key)) {
      IsNumber(letters[key], {});
    } else if (known != nullptr) {
      letters.json[key] = NumberJson(ValueOf(*known, key.front()));
    } else if (!device.Has("file")) {
      Refuse(letters.PathOf(key), "is missing");
    }
  }
}

void Checker::NameIsOfOneType(const std::string& name, const std::string& path, std::int32_t type) {
  const auto [named, isNew] = names_.try_emplace(name, Named{type, path});
  if (isNew || named->second.type == type) return;
  Refuse(path, "is also the name of another type of device at " + named->second.path +
                   "; the dialog knows devices only by their names");
}

}  // namespace vanzet::define
