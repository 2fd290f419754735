#include "define/checker.h"

#include <algorithm>
#include <cmath>

#include "base/near_words.h"
#include "base/number_text.h"

namespace vanzet::define {
namespace {

constexpr const char* kMissing = "is missing";

std::vector<std::string> KeysOf(std::span<const DeviceRow> rows) {
  std::vector<std::string> keys;
  for (const DeviceRow& row : rows) keys.emplace_back(row.Key());
  return keys;
}

/// The reason for refusing an unknown word.
std::string UnknownReason(const std::string& what, const std::string& word,
                          const std::vector<std::string>& known) {
  const std::vector<std::string> near = NearWords(word, known);
  if (near.empty()) return "unknown " + what + "; known are " + Listed(known);
  std::string hint;
  for (const std::string& each : near) hint += (hint.empty() ? "" : " or ") + Quoted(each);
  return "unknown " + what + "; did you mean " + hint + "?";
}

double NumberAt(const Json& record, const char* key) {
  return record.contains(key) ? record[key].get<double>() : 0;
}

}  // namespace

Refusals CheckForm(Json& form, const Surroundings& surroundings) {
  Checker checker(surroundings);
  checker.Form({form, "$"});
  return checker.refusals();
}

void Checker::Form(const Place& form) {
  if (!IsObject(form, {"version", "spurs"})) return;
  Version(form);
  if (!form.Has("spurs")) return void(Refuse(form.PathOf("spurs"), kMissing));
  const Place spurs = form["spurs"];
  if (!spurs.json.is_array()) return void(Refuse(spurs, "must be a list"));
  if (spurs.json.empty()) Refuse(spurs, "must name at least one spur");
  for (std::size_t i = 0; i < spurs.json.size(); ++i) {
    Spur({spurs.json[i], spurs.path + "[" + std::to_string(i) + "]"});
  }
}

void Checker::Version(const Place& form) {
  if (!form.Has(kVersionKey)) return;
  const Place version = form[kVersionKey];
  if (version.json != kFormVersion) {
    Refuse(version, "is another version of the form; this program knows " + std::to_string(kFormVersion));
  }
  // The comparison and the dialog take the equipment alone.
  form.json.erase(kVersionKey);
}

void Checker::Spur(const Place& spur) {
  if (!IsObject(spur, {"spur", "main", "sub", "center", "datum", "steady_rest"})) return;
  SpurNumber(spur);
  for (std::size_t i = 0; i < std::size(kSpindleKeys); ++i) Spindle(spur, i);
  Center(spur);
  Datum(spur);
  SteadyRest(spur);
}

void Checker::SpurNumber(const Place& spur) {
  if (!spur.Has("spur")) return void(Refuse(spur.PathOf("spur"), kMissing));
  const Place number = spur["spur"];
  const double most = surroundings_.spurs - 1;
  if (!IsValue(number, std::int32_t(), {0, most})) return;
  if (!spurs_.insert(number.json.get<std::int32_t>()).second) Refuse(number, "is listed twice");
}

void Checker::Spindle(const Place& spur, std::size_t spindle) {
  if (!spur.Has(kSpindleKeys[spindle])) return;
  const Place place = spur[kSpindleKeys[spindle]];
  const bool isSub = spindle == 1;
  if (isSub && !surroundings_.hasSubSpindle) return void(Refuse(place, "the machine has no sub spindle"));
  Keys known = KeysOf(ClampRows());
  for (const std::string_view key : {JawRow().Key(), BilletPart().key, FinishedPart().key})
    known.emplace_back(key);
  if (!IsObject(place, known)) return;
  Clamp(place);
  if (place.Has(JawRow().Key())) Device(place[JawRow().Key()], JawRow());
  OneOf(place, BilletPart(), isSub);
  OneOf(place, FinishedPart(), isSub);
}

void Checker::Clamp(const Place& spindle) {
  const DeviceRow* given = nullptr;
  for (const DeviceRow& row : ClampRows()) {
    if (!spindle.Has(row.Key())) continue;
    const Place device = spindle[row.Key()];
    if (given != nullptr) {
      Refuse(device, "a spindle holds one device, but it also has " + Quoted(std::string(given->Key())));
    }
    given = &row;
    Device(device, row);
  }
}

void Checker::Center(const Place& spur) {
  if (!spur.Has(CenterRow().Key())) return;
  const Place center = spur[CenterRow().Key()];
  if (!surroundings_.hasTailStock) return void(Refuse(center, "the machine has no tailstock"));
  Device(center, CenterRow());
}

void Checker::SteadyRest(const Place& spur) {
  if (!spur.Has("steady_rest")) return;
  const Place rest = spur["steady_rest"];
  if (!IsValue(rest, bool(), {}) || !rest.json.get<bool>()) return;
  if (!surroundings_.hasSteadyRest) Refuse(rest, "the machine has no steady rest");
}

void Checker::Datum(const Place& spur) {
  if (!spur.Has("datum")) return;
  const Place datum = spur["datum"];
  if (!IsObject(datum, {kSpindleKeys, std::end(kSpindleKeys)})) return;
  for (std::size_t i = 0; i < std::size(kSpindleKeys); ++i) {
    if (datum.Has(kSpindleKeys[i])) Fields(datum[kSpindleKeys[i]], DatumFields(i), i == 1);
  }
}

template <class Record>
void Checker::OneOf(const Place& spindle, const Part<Record>& part, bool isSub) {
  if (!spindle.Has(part.key)) return;
  const Place record = spindle[part.key];
  if (!record.json.is_object()) return void(Refuse(record, "must be an object"));
  if (!record.Has(kKind)) return void(Refuse(record.PathOf(kKind), kMissing));
  const Place word = record[kKind];
  if (!IsText(word)) return;
  const Kind<Record>* const kind = FindKind(part, word.json.get<std::string>());
  if (kind == nullptr) {
    Keys words;
    for (const Kind<Record>& each : part.kinds) words.emplace_back(each.word);
    return void(Refuse(word, UnknownReason("kind", word.json.get<std::string>(), words)));
  }
  if (kind->select == 0) return void(Refuse(word, "the dialog cannot store a part that is drawn as figures"));
  if (!Fields(record, kind->fields, isSub, {kKind})) return;
  if (kind->word == "cylinder") Cylinder(record);
  FilesOf(record);
}

void Checker::Cylinder(const Place& billet) {
  const Json& json = billet.json;
  if (NumberAt(json, "inner_diameter") > NumberAt(json, "outer_diameter")) {
    Refuse(billet.PathOf("inner_diameter"), "must not be above outer_diameter");
  }
  const double bar = NumberAt(json, "bar_length");
  const double least =
      NumberAt(json, "part_length") + NumberAt(json, "front_allowance") + NumberAt(json, "rear_allowance");
  if (bar > 0 && bar < least) {
    Refuse(billet.PathOf("bar_length"),
           "must be 0, or at least the length with its allowances: " + ExactText(least));
  }
}

void Checker::FilesOf(const Place& record) {
  for (const char* const key : {"outside", "inside", "solid"}) {
    if (!record.Has(key)) continue;
    const Place name = record[key];
    const auto& exists = std::string_view(key) == "solid" ? surroundings_.solid : surroundings_.figure;
    if (const auto found = exists(name.json.get<std::string>()); !found)
      Refuse(name, found.fault().Message());
  }
}

bool Checker::IsObject(const Place& place, const Keys& known) {
  if (!place.json.is_object()) return Refuse(place, "must be an object");
  for (const auto& [key, value] : place.json.items()) {
    if (std::ranges::find(known, key) != known.end()) continue;
    Refuse(place.PathOf(key), UnknownReason("key", key, known));
  }
  return true;
}

bool Checker::IsText(const Place& place) {
  constexpr std::size_t kLongest = 1000;  // a line of the catalogue and an item of a definition hold it
  if (!place.json.is_string()) return Refuse(place, "must be a string");
  const auto text = place.json.get<std::string>();
  if (text.empty()) return Refuse(place, "must not be empty");
  if (text.size() > kLongest)
    return Refuse(place, "must not be longer than " + std::to_string(kLongest) + " bytes");
  const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20U || c == 0x7f; };
  if (std::ranges::any_of(text, isControl)) return Refuse(place, "must not contain a control character");
  return true;
}

bool Checker::IsNumber(const Place& place, const Range& range) {
  if (!place.json.is_number()) return Refuse(place, "must be a number");
  const double number = place.json.get<double>();
  if (number >= range.least && number <= range.most) return true;
  return Refuse(place, "must be from " + ExactText(range.least) + " to " + ExactText(range.most));
}

bool Checker::IsValue(const Place& place, std::int32_t /*of*/, const Range& range) {
  const bool isWhole =
      place.json.is_number() && std::floor(place.json.get<double>()) == place.json.get<double>();
  if (!isWhole) return Refuse(place, "must be a whole number");
  return IsNumber(place, range);
}

bool Checker::IsValue(const Place& place, bool /*of*/, const Range& /*range*/) {
  return place.json.is_boolean() || Refuse(place, "must be true or false");
}

template <class Record>
bool Checker::Fields(const Place& record, std::span<const Field<Record>> fields, bool isSub, Keys others) {
  for (const Field<Record>& field : fields) others.emplace_back(field.key);
  if (!IsObject(record, others)) return false;
  bool isSound = true;
  for (const Field<Record>& field : fields) isSound = Value(record, field, isSub) && isSound;
  return isSound;
}

template <class Record>
bool Checker::Value(const Place& record, const Field<Record>& field, bool isSub) {
  if (!record.Has(field.key)) {
    return field.need == Need::kNone || Refuse(record.PathOf(field.key), kMissing);
  }
  const Place value = record[field.key];
  if (isSub && field.isOfMainAlone) return Refuse(value, "cannot be given for the sub spindle");
  const Record blank{};
  const bool isSound =
      std::visit([&](auto member) { return IsValue(value, blank.*member, field.range); }, field.member);
  if (!isSound || field.need != Need::kNonzero || value.json.get<double>() != 0) return isSound;
  return Refuse(value, "must not be 0");
}

template bool Checker::Fields(const Place&, std::span<const Field<scene::Spindle>>, bool, Keys);

}  // namespace vanzet::define
