#include "history/words.h"

#include <algorithm>
#include <map>
#include <utility>

#include <nlohmann/json.hpp>

#include "base/number_text.h"
#include "define/write.h"
#include "history/item_changes.h"
#include "project/definition.h"
#include "scene/equipment.h"

namespace vanzet::history {
namespace {

using define::Json;
using Values = std::vector<std::pair<std::string, Json>>;

/// The keys of a record that say which device or part it is.
constexpr std::string_view kNames[] = {"name", "file", "kind", "solid", "figure"};

bool IsName(const std::string& key) {
  return std::ranges::find(kNames, key) != std::end(kNames);
}

/// The values of a record, those of its letters beside the others.
Values ValuesOf(const Json& record) {
  Values values;
  if (!record.is_object()) return {{"used", record}};
  for (const auto& [key, value] : record.items()) {
    if (!value.is_object()) values.emplace_back(key, value);
    if (!value.is_object()) continue;
    for (const auto& [letter, number] : value.items()) values.emplace_back(letter, number);
  }
  return values;
}

/// The records of a spur by their paths, in the order of the form.
using Records = std::vector<std::pair<std::string, Values>>;

Records RecordsOf(const Json& spur) {
  Records records;
  for (const auto& [key, value] : spur.items()) {
    if (key == "spur") continue;
    const bool isGroup = key == "main" || key == "sub" || key == "datum";
    if (!isGroup) records.emplace_back(key, ValuesOf(value));
    if (!isGroup) continue;
    for (const auto& [part, record] : value.items())
      records.emplace_back(std::string(key).append(".").append(part), ValuesOf(record));
  }
  return records;
}

const Json* Find(const Values& values, const std::string& key) {
  const auto found = std::ranges::find(values, key, &Values::value_type::first);
  return found == values.end() ? nullptr : &found->second;
}

std::string TextOf(const Json* value) {
  if (value == nullptr) return "nothing";
  if (value->is_string()) return value->get<std::string>();
  if (value->is_boolean()) return value->get<bool>() ? "yes" : "no";
  return value->is_number() ? ExactText(value->get<double>()) : value->dump();
}

/// "outer diameter 42"; of a name the name alone.
std::string ValueText(const std::string& key, const std::string& text) {
  if (IsName(key)) return text;
  std::string words = key;
  std::ranges::replace(words, '_', ' ');
  return words + " " + text;
}

std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) joined += (joined.empty() ? "" : "; ") + text;
  return joined;
}

/// "new: Chuck 160", in full with all values.
std::string ContentText(const std::string& word, const Values& values, Detail detail) {
  std::vector<std::string> texts;
  for (const auto& [key, value] : values) {
    if (detail == Detail::kFull || IsName(key)) texts.push_back(ValueText(key, TextOf(&value)));
  }
  return texts.empty() ? word : word + ": " + Joined(texts);
}

std::string DifferenceText(const Values& before, const Values& now, Detail detail) {
  std::vector<std::string> texts;
  bool hasOtherName = false;
  const auto compare = [&](const std::string& key, const Json* was, const Json* is) {
    const std::string from = TextOf(was), to = TextOf(is);
    if (from == to || (hasOtherName && detail == Detail::kBrief)) return;
    texts.push_back(ValueText(key, from + " -> " + to));
    hasOtherName = hasOtherName || IsName(key);
  };
  for (const auto& [key, value] : now) compare(key, Find(before, key), &value);
  for (const auto& [key, value] : before) {
    if (Find(now, key) == nullptr) compare(key, &value, nullptr);
  }
  return Joined(texts);
}

std::vector<std::string> EquipmentChanges(const Records& before, const Records& now, Detail detail) {
  std::vector<std::string> lines;
  const auto add = [&](const std::string& path, const std::string& text) {
    if (!text.empty()) lines.push_back(path + ": " + text);
  };
  const std::map<std::string, Values> former(before.begin(), before.end()), present(now.begin(), now.end());
  for (const auto& [path, values] : now) {
    const auto was = former.find(path);
    add(path, was == former.end() ? ContentText("new", values, detail)
                                  : DifferenceText(was->second, values, detail));
  }
  for (const auto& [path, values] : before) {
    if (!present.contains(path)) add(path, ContentText("removed", values, Detail::kBrief));
  }
  return lines;
}

Records RecordsOf(const project::Definition& definition) {
  define::Refusals leftOut;
  return RecordsOf(define::SpurForm(0, scene::ReadEquipment(definition), "$", leftOut));
}

std::string Counted(std::size_t count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

}  // namespace

struct Reading::Form {
  std::int32_t version;
  Records records;
};

Result<Reading> Reading::Of(std::optional<vdm::Vdm> content) {
  Reading reading;
  if (!content) return reading;
  VANZET_TRY(const auto definition, project::ReadDefinition(*content));
  reading.form_ = std::make_shared<const Form>(Form{definition.version, RecordsOf(definition)});
  reading.content_ = std::move(content);
  return reading;
}

Result<std::vector<std::string>> ChangesInWords(const Reading& before, const Reading& now, Detail detail) {
  if (!now.form_) return std::vector<std::string>(before.form_ ? 1 : 0, "removed");
  static const Reading::Form kNone{0, {}};
  const Reading::Form &former = before.form_ ? *before.form_ : kNone, &present = *now.form_;
  std::vector<std::string> lines;
  if (!before.form_) lines.emplace_back("created");
  if (before.form_ && former.version != present.version) {
    lines.push_back("version " + std::to_string(former.version) + " -> " + std::to_string(present.version));
  }
  std::ranges::move(EquipmentChanges(former.records, present.records, detail), std::back_inserter(lines));
  if (!lines.empty()) return lines;
  VANZET_TRY(const std::size_t records, CountChangedRecords(*before.content_, *now.content_));
  if (records > 0) lines.push_back(Counted(records, "record") + " of other data");
  return lines;
}

bool HaveSameRecords(const vdm::Vdm& a, const vdm::Vdm& b) {
  if (a.Size() != b.Size()) return false;
  for (std::size_t i = 0; i < a.Size(); ++i) {
    const auto &one = a.EntryOf(i), &other = b.EntryOf(i);
    if (one.MustBeWritten() || other.MustBeWritten() || one.key != other.key) return false;
  }
  return true;
}

}  // namespace vanzet::history
