#include "define/checker.h"

// Raw and finished parts.

namespace vanzet::define {
namespace {

double NumberAt(const Json& record, const char* key) {
  return record.contains(key) ? record[key].get<double>() : 0;
}

}  // namespace

void Checker::RawPart(const Place& spindle, bool isSub) {
  const Kind<scene::Billet>* const kind = OneOf(spindle, BilletPart(), isSub);
  if (kind != nullptr && kind->type == scene::billet_type::kCylinder) Cylinder(spindle[BilletPart().key]);
}

void Checker::Finished(const Place& spindle, bool isSub) {
  OneOf(spindle, FinishedPart(), isSub);
}

template <class Record>
const Kind<Record>* Checker::OneOf(const Place& spindle, const Part<Record>& part, bool isSub) {
  const auto refuse = [this](const Place& place, std::string reason) {
    Refuse(place, std::move(reason));
    return nullptr;
  };
  if (!spindle.Has(part.key)) return nullptr;
  const Place record = spindle[part.key];
  if (!record.json.is_object()) return refuse(record, "must be an object");
  if (!record.Has(kKind)) {
    Refuse(record.PathOf(kKind), kMissing);
    return nullptr;
  }
  const Place word = record[kKind];
  if (!IsText(word)) return nullptr;
  const Kind<Record>* const kind = FindKind(part, word.json.template get<std::string>());
  if (kind == nullptr) {
    Keys words;
    for (const Kind<Record>& each : part.kinds) words.emplace_back(each.word);
    return refuse(word, UnknownReason("kind", word.json.template get<std::string>(), words));
  }
  if (kind->select == 0) return refuse(word, "the dialog cannot store a part that is drawn as figures");
  if (!Fields(record, kind->fields, isSub, {kKind})) return nullptr;
  FilesOf(record);
  return kind;
}

void Checker::Cylinder(const Place& billet) {
  Bore(billet);
  Allowances(billet);
}

void Checker::Bore(const Place& cylinder) {
  const double inner = NumberAt(cylinder.json, "inner_diameter");
  const double outer = NumberAt(cylinder.json, "outer_diameter");
  if (inner < outer) return;
  Refuse(cylinder.PathOf("inner_diameter"),
         "must be less than outer_diameter (" + Shown(outer) + "), but is " + Shown(inner));
}

void Checker::Allowances(const Place& cylinder) {
  const Json& json = cylinder.json;
  const double part = NumberAt(json, "part_length"), front = NumberAt(json, "front_allowance"),
               rear = NumberAt(json, "rear_allowance"), bar = NumberAt(json, "bar_length");
  const double whole = part + front + rear;
  for (const auto& [key, rest] : {std::pair("front_allowance", part + front),
                                  {"rear_allowance", part + rear},
                                  {"rear_allowance", whole}}) {
    if (rest > 0) continue;
    const double of = NumberAt(json, key);
    return void(Refuse(cylinder.PathOf(key),
                       "leaves nothing of the part: " + Shown(of) + " with a length of " + Shown(rest - of)));
  }
  if (whole > kLargestLength) {
    return void(Refuse(cylinder.PathOf("part_length"),
                       "must be at most 10 km with the allowances, but is " + Shown(whole)));
  }
  if (bar > 0 && bar < whole) {
    Refuse(cylinder.PathOf("bar_length"),
           "must be 0, or at least the length with its allowances: " + Shown(whole));
  }
}

void Checker::FilesOf(const Place& record) {
  for (const char* const key : {"outside", "inside", "solid"}) {
    if (!record.Has(key)) continue;
    const Place name = record[key];
    const auto& exists = std::string_view(key) == "solid" ? surroundings_.solid : surroundings_.figure;
    if (!exists) continue;
    if (const auto found = exists(name.json.get<std::string>()); !found)
      Refuse(name, found.fault().Message());
  }
}

}  // namespace vanzet::define
