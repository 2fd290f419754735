#include "define/write.h"

#include <algorithm>

#include <nlohmann/json.hpp>

#include "define/tables.h"

namespace vanzet::define {
namespace {

using scene::Spindle;

/// A number of the form; `of` is the unit of the table.
Json ValueJson(double value, devices::Unit of, LengthUnit unit) {
  return NumberJson(of == devices::Unit::kMillimetre ? RoundedInUnit(value, unit) : value);
}
template <class Value>
Json ValueJson(const Value& value, devices::Unit /*of*/, LengthUnit /*unit*/) {
  return value;
}

/// Writes one spur.
class Writer {
 public:
  Writer(std::string path, Refusals& leftOut, LengthUnit unit)
      : path_(std::move(path)), leftOut_(leftOut), unit_(unit) {}

  Json Spur(std::int32_t spur, const scene::Equipment& equipment) {
    Json json = {{"spur", spur}};
    for (std::size_t i = 0; i < equipment.spindles.size(); ++i) {
      const std::string key(kSpindleKeys[i]);
      AddUnlessEmpty(json, key, SpindleJson(equipment.spindles[i], i == 1, Below(path_, key)));
    }
    AddDevice(json, {&CenterRow(), 1}, equipment.center, path_);
    AddUnlessEmpty(json, "datum", DatumJson(equipment));
    if (equipment.usesSteadyRest) json["steady_rest"] = true;
    return json;
  }

 private:
  /// Adds the values of a record, except empty strings.
  template <class Record>
  void AddFields(Json& json, std::span<const Field<Record>> fields, const Record& record, bool isSub) const {
    for (const Field<Record>& field : fields) {
      if (field.isOfMainAlone && isSub) continue;
      const auto valueOf = [&](auto member) { return ValueJson(record.*member, field.quantity.unit, unit_); };
      Json value = std::visit(valueOf, field.member);
      if (!IsEmptyText(value)) json[std::string(field.key)] = std::move(value);
    }
  }

  static void AddUnlessEmpty(Json& json, const std::string& key, Json value) {
    if (!value.empty()) json[key] = std::move(value);
  }

  Json SpindleJson(const Spindle& spindle, bool isSub, const std::string& path) {
    Json json = Json::object();
    AddDevice(json, ClampRows(), spindle.clamp, path);
    if (Json* const jaw = AddDevice(json, {&JawRow(), 1}, spindle.jaw, path)) {
      AddFields(*jaw, JawFields(), spindle, isSub);
    }
    AddPart(json, BilletPart(), spindle, isSub, path);
    AddPart(json, FinishedPart(), spindle, isSub, path);
    return json;
  }

  /// Adds a device under the key of its kind and returns what was added; null without a device or a kind.
  Json* AddDevice(Json& json, std::span<const DeviceRow> rows, const scene::Device& device,
                  const std::string& path) {
    const std::int32_t type = device.params.type;
    if (type == 0) return nullptr;
    const auto row = std::ranges::find_if(rows, [&](const DeviceRow& each) { return each.kind->Has(type); });
    if (row == rows.end()) {
      leftOut_.push_back({path, "the form cannot express the device " + Quoted(device.name) + " of type " +
                                    std::to_string(type)});
      return nullptr;
    }
    return &(json[std::string(row->Key())] = DeviceJson(*row, device));
  }

  Json DeviceJson(const DeviceRow& row, const scene::Device& device) const {
    const std::int32_t type = device.params.type;
    Json json = Json::object();
    json[type == row.kind->own.code ? "file" : "name"] = device.name;
    if (type != row.kind->own.code && row.HasShapes()) json["shape"] = row.kind->ShapeOf(type);
    Json letters = Json::object();
    for (const devices::Letter& each : devices::LettersOf(type)) {
      letters[std::string(1, each.letter)] = ValueJson(ValueOf(device.params, each.letter), each.unit, unit_);
    }
    AddUnlessEmpty(json, "letters", std::move(letters));
    return json;
  }

  template <class Record>
  void AddPart(Json& json, const Part<Record>& part, const Spindle& spindle, bool isSub,
               const std::string& path) {
    const Record& record = spindle.*part.member;
    if (record.type == 0) return;
    const auto kind = std::ranges::find(part.kinds, record.type, &Kind<Record>::type);
    if (kind == part.kinds.end()) {
      leftOut_.push_back({Below(path, std::string(part.key)),
                          "the form cannot express type " + std::to_string(record.type)});
      return;
    }
    Json& added = json[std::string(part.key)] = {{kKind, kind->word}};
    AddFields(added, kind->fields, record, isSub);
  }

  Json DatumJson(const scene::Equipment& equipment) const {
    Json json = Json::object();
    for (std::size_t i = 0; i < equipment.spindles.size(); ++i) {
      const Spindle& spindle = equipment.spindles[i];
      if (spindle.clampingOut == 0 && spindle.origin == 0) continue;
      Json fields = Json::object();
      AddFields(fields, DatumFields(i), spindle, i == 1);
      json[std::string(kSpindleKeys[i])] = std::move(fields);
    }
    return json;
  }

  const std::string path_;
  Refusals& leftOut_;
  const LengthUnit unit_;
};

}  // namespace

Json SpurForm(std::int32_t spur, const scene::Equipment& equipment, const std::string& path,
              Refusals& leftOut, LengthUnit unit) {
  return Writer(path, leftOut, unit).Spur(spur, equipment);
}

Json WholeForm(Json spurs, LengthUnit unit) {
  Json form = {{kVersionKey, kFormVersion}};
  if (unit != LengthUnit::kMillimetre) form[kUnitKey] = WordOf(unit);
  form["spurs"] = std::move(spurs);
  return form;
}

}  // namespace vanzet::define
