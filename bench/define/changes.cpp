#include "define/changes.h"

#include <algorithm>

#include <nlohmann/json.hpp>

#include "base/number_text.h"
#include "define/tables.h"

namespace vanzet::define {
namespace {

/// A value for people; nothing for one that says nothing.
std::string ValueText(const Json& value) {
  if (value.is_string()) return value.get_ref<const std::string&>().empty() ? "" : Quoted(value);
  if (value.is_boolean()) return value.get<bool>() ? "yes" : "no";
  return value.is_number() ? ExactText(value.get<double>()) : "";
}

bool IsNothing(const Json& value) {
  return value.is_null() || value == false || value == 0 || IsEmptyText(value);
}

/// Two numbers with the same six decimals are the same.
bool AreSame(const Json& a, const Json& b) {
  if (!a.is_number() || !b.is_number()) return a == b || (IsNothing(a) && IsNothing(b));
  return FixedText(a.get<double>(), 6) == FixedText(b.get<double>(), 6);
}

/// The values that a record has when the form leaves them out; lengths of a solid are not known.
template <class Record>
void AddDefaults(const Part<Record>& part, Json& json) {
  const Kind<Record>& kind = *FindKind(part, json[kKind].get<std::string>());
  const Record blank{};
  for (const Field<Record>& field : kind.fields) {
    const auto* const truth = std::get_if<bool Record::*>(&field.member);
    if (truth != nullptr && !json.contains(std::string(field.key)))
      json[std::string(field.key)] = blank.**truth;
  }
}

/// A record without objects in it: the letters of a device are beside its name.
Json FlatRecord(const Json& record, const std::string& key) {
  Json flat = record.is_object() ? record : Json{{"used", record}};
  if (flat.contains("letters")) {
    const Json letters = flat["letters"];
    flat.erase("letters");
    flat.update(letters);
  }
  if (key == BilletPart().key) AddDefaults(BilletPart(), flat);
  return flat;
}

std::string WithBlanks(std::string words) {
  std::ranges::replace(words, '_', ' ');
  return words;
}

std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) joined += (joined.empty() ? "" : "; ") + text;
  return joined;
}

/// The values of a new record.
std::string ContentText(const Json& record) {
  std::vector<std::string> values;
  for (const auto& [key, value] : record.items()) {
    if (!IsNothing(value)) values.push_back(WithBlanks(key) + " " + ValueText(value));
  }
  return values.empty() ? "new" : "new: " + Joined(values);
}

/// The values that differ; empty when none does. A length that the form leaves to a solid is passed over.
std::string DifferenceText(const Json& record, const Json& former) {
  std::vector<std::string> differences;
  const auto compare = [&](const std::string& key, const Json& now, const Json& before) {
    if (AreSame(now, before)) return;
    const auto shown = [](const Json& value) { return value.is_null() ? "nothing" : ValueText(value); };
    differences.push_back(WithBlanks(key) + " " + shown(before) + " -> " + shown(now));
  };
  const bool isOfSolid = record.contains("solid") && former.contains("solid");
  for (const auto& [key, value] : record.items()) compare(key, value, former.value(key, Json()));
  for (const auto& [key, value] : former.items()) {
    if (!record.contains(key) && !isOfSolid) compare(key, Json(), value);
  }
  return Joined(differences);
}

/// Collects the changes of one spur.
class SpurChanges {
 public:
  SpurChanges(std::int32_t spur, std::vector<std::string>& lines)
      : spur_("spur " + std::to_string(spur)), lines_(lines) {}

  void OfSpur(const Json& now, const Json& before) {
    const std::size_t linesBefore = lines_.size();
    for (const std::string_view spindle : kSpindleKeys) OfRecords(now, before, std::string(spindle), "");
    for (const std::string_view spindle : kSpindleKeys) {
      OfRecords(At(now, "datum"), At(before, "datum"), std::string(spindle), "datum ");
    }
    for (const char* const key : {"center", "steady_rest"}) OfRecord(now, before, key, WithBlanks(key));
    if (lines_.size() == linesBefore) lines_.push_back(spur_ + ": nothing changes");
  }

 private:
  static const Json& At(const Json& place, const std::string& key) {
    static const Json kNone = Json::object();
    return place.contains(key) ? place[key] : kNone;
  }

  /// The records of a spindle; its datum is a record itself.
  void OfRecords(const Json& now, const Json& before, const std::string& key, const std::string& words) {
    if (!words.empty()) return OfRecord(now, before, key, words + key);
    std::vector<std::string> records;
    for (const Json* const spindle : {&At(now, key), &At(before, key)}) {
      for (const auto& [record, value] : spindle->items()) {
        if (std::ranges::find(records, record) == records.end()) records.push_back(record);
      }
    }
    for (const std::string& record : records)
      OfRecord(At(now, key), At(before, key), record, key + " " + WithBlanks(record));
  }

  void OfRecord(const Json& now, const Json& before, const std::string& key, const std::string& words) {
    const bool isNow = now.contains(key) && !IsNothing(now[key]), wasBefore = before.contains(key);
    if (!isNow && !wasBefore) return;
    std::string text = "removed";
    if (isNow && !wasBefore) text = ContentText(FlatRecord(now[key], key));
    if (isNow && wasBefore) text = DifferenceText(FlatRecord(now[key], key), FlatRecord(before[key], key));
    if (!text.empty()) lines_.push_back(spur_ + ", " + words + ": " + text);
  }

  const std::string spur_;
  std::vector<std::string>& lines_;
};

}  // namespace

std::vector<std::string> ChangesOf(const Json& form, const Json& former) {
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < form["spurs"].size(); ++i) {
    const Json& spur = form["spurs"][i];
    SpurChanges(spur["spur"].get<std::int32_t>(), lines).OfSpur(spur, former["spurs"][i]);
  }
  return lines;
}

}  // namespace vanzet::define
