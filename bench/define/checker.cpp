#include "define/checker.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/near_words.h"
#include "base/number_text.h"

namespace vanzet::define {
namespace {

std::vector<std::string> KeysOf(std::span<const DeviceRow> rows) {
  std::vector<std::string> keys;
  for (const DeviceRow& row : rows) keys.emplace_back(row.Key());
  return keys;
}

/// The demand that a number does not meet, in the unit of the form: "must be above 0, but is -5".
std::string RangeReason(const Quantity& quantity, double stored, double given, LengthUnit unit) {
  const bool isTooLarge = stored > quantity.most;
  const double limit = isTooLarge ? quantity.most : quantity.least;
  const char* const demand = isTooLarge ? "at most " : quantity.isAbove ? "above " : "at least ";
  const bool isFarthest = quantity.unit == devices::Unit::kMillimetre && std::abs(limit) == kLargestLength;
  return std::string("must be ") + demand + LengthText(limit, unit) + (isFarthest ? " (10 km)" : "") +
         ", but is " + ExactText(given);
}

bool IsWithin(const Quantity& quantity, double number) {
  if (quantity.isAbove && number == quantity.least) return false;
  return number >= quantity.least && number <= quantity.most;
}

}  // namespace

std::string UnknownReason(const std::string& what, const std::string& word,
                          const std::vector<std::string>& known) {
  std::string near;
  for (const std::string& each : NearWords(word, known)) near += (near.empty() ? "" : " or ") + Quoted(each);
  if (near.empty()) return "unknown " + what + "; known are " + Listed(known);
  return "unknown " + what + "; did you mean " + near + "?";
}

Refusals CheckForm(Json& form, const Surroundings& surroundings) {
  Checker checker(surroundings);
  checker.Form({form, "$"});
  return checker.refusals();
}

Refusals FindImpossible(Json form) {
  return CheckForm(form, {.spurs = std::numeric_limits<std::int32_t>::max(),
                          .hasSubSpindle = true,
                          .hasTailStock = true,
                          .hasSteadyRest = true,
                          .catalogue = {},
                          .ownDevice = {},
                          .figure = {},
                          .solid = {}});
}

void Checker::Form(const Place& form) {
  if (!IsObject(form, {kSchemaKey, kVersionKey, kUnitKey, "spurs"})) return;
  Schema(form);
  Version(form);
  Unit(form);
  if (!form.Has("spurs")) return void(Refuse(form.PathOf("spurs"), kMissing));
  const Place spurs = form["spurs"];
  if (!spurs.json.is_array()) return void(Refuse(spurs, "must be a list"));
  if (spurs.json.empty()) Refuse(spurs, "must name at least one spur");
  for (std::size_t i = 0; i < spurs.json.size(); ++i) {
    Spur({spurs.json[i], spurs.path + "[" + std::to_string(i) + "]"});
  }
}

void Checker::Schema(const Place& form) {
  if (!form.Has(kSchemaKey)) return;
  const Place schema = form[kSchemaKey];
  if (!schema.json.is_string()) Refuse(schema, "must be a string");
  form.json.erase(kSchemaKey);
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

void Checker::Unit(const Place& form) {
  if (!form.Has(kUnitKey)) return;
  const Place unit = form[kUnitKey];
  const auto named = unit.json.is_string() ? LengthUnitNamed(unit.json.get<std::string>()) : std::nullopt;
  if (!named) Refuse(unit, "must be \"mm\" or \"inch\"");
  unit_ = named.value_or(unit_);
  form.json.erase(kUnitKey);
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
  if (!IsValue(number, std::int32_t(), Quantity{.least = 0, .most = most})) return;
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
  RawPart(place, isSub);
  Finished(place, isSub);
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
  if (!spindle.Has(JawRow().Key())) return;
  const Place jaw = spindle[JawRow().Key()];
  if (given == nullptr) Refuse(jaw, "needs a device that carries it: " + Listed(KeysOf(ClampRows())));
  Device(jaw, JawRow());
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

bool Checker::IsObject(const Place& place, const Keys& known) {
  if (!place.json.is_object()) return Refuse(place, "must be an object");
  for (const auto& [key, value] : place.json.items()) {
    if (std::ranges::find(known, key) != known.end()) continue;
    Refuse(place.PathOf(key), UnknownReason("key", key, known));
  }
  return true;
}

bool Checker::IsText(const Place& place) {
  if (!place.json.is_string()) return Refuse(place, "must be a string");
  const auto text = place.json.get<std::string>();
  if (text.empty()) return Refuse(place, "must not be empty");
  if (text.size() > kLongestText)
    return Refuse(place, "must not be longer than " + std::to_string(kLongestText) + " bytes");
  const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20U || c == 0x7f; };
  if (std::ranges::any_of(text, isControl)) return Refuse(place, "must not contain a control character");
  return true;
}

bool Checker::IsNumber(const Place& place, const Quantity& quantity) {
  if (!place.json.is_number()) return Refuse(place, "must be a number");
  const double number = place.json.get<double>();
  const bool isLength = quantity.unit == devices::Unit::kMillimetre;
  const double stored = isLength ? InMillimetres(number, unit_) : number;
  if (!IsWithin(quantity, stored)) {
    return Refuse(place, RangeReason(quantity, stored, number, isLength ? unit_ : LengthUnit::kMillimetre));
  }
  if (stored != number) place.json = stored;
  return true;
}

bool Checker::IsValue(const Place& place, std::int32_t /*of*/, const Quantity& quantity) {
  const bool isWhole =
      place.json.is_number() && std::floor(place.json.get<double>()) == place.json.get<double>();
  if (!isWhole) return Refuse(place, "must be a whole number");
  return IsNumber(place, quantity);
}

bool Checker::IsValue(const Place& place, bool /*of*/, const Quantity& /*quantity*/) {
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
  if (!record.Has(field.key)) return !field.isRequired || Refuse(record.PathOf(field.key), kMissing);
  const Place value = record[field.key];
  if (isSub && field.isOfMainAlone) return Refuse(value, "cannot be given for the sub spindle");
  const Record blank{};
  return std::visit([&](auto member) { return IsValue(value, blank.*member, field.quantity); }, field.member);
}

template bool Checker::Fields(const Place&, std::span<const Field<scene::Spindle>>, bool, Keys);
template bool Checker::Fields(const Place&, std::span<const Field<scene::Billet>>, bool, Keys);
template bool Checker::Fields(const Place&, std::span<const Field<scene::FinishPart>>, bool, Keys);

}  // namespace vanzet::define
