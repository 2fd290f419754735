#include "cli/catalogue/print.h"

#include "base/one_line.h"
#include "catalogue/kinds.h"
#include "catalogue/rules.h"
#include "define/json.h"
#include "devices/kinds.h"

namespace vanzet::cli {
namespace {

using catalogue::Entry;
using catalogue::Shop;

/// The section of the translations that has the names of letters.
constexpr const char* kLetterSection = "view";

constexpr const char* kUnknown = "-";

std::string KindOf(const Entry& entry) {
  const std::string_view word = catalogue::KindWord(entry.params.type);
  return std::string(word.empty() ? kUnknown : word);
}

std::string UnitOf(devices::Unit unit, const Context& context) {
  if (unit == devices::Unit::kDegree) return " " + context.Heading(Translatable("degrees"));
  return unit == devices::Unit::kMillimetre ? " mm" : "";
}

/// "Outer radius (A)", or the letter alone where it has no name.
std::string LabelOf(const devices::Letter& letter, const Context& context) {
  const std::string name(context.texts.Translate(kLetterSection, letter.name));
  const std::string sign(1, letter.letter);
  return name.empty() ? sign : name + " (" + sign + ")";
}

}  // namespace

Json JsonOf(const Shop& shop, const Entry& entry) {
  const std::string_view word = catalogue::KindWord(entry.params.type);
  Json letters = Json::object();
  for (const devices::Letter& each : devices::LettersOf(entry.params.type)) {
    letters[std::string(1, each.letter)] = define::NumberJson(ValueOf(entry.params, each.letter));
  }
  Json json = {
      {"name", entry.name}, {"kind", word.empty() ? Json() : Json(word)}, {"letters", std::move(letters)}};
  if (const Json* const figures = shop.maker.Find(entry.name)) json["maker"] = *figures;
  return json;
}

Json JsonOf(const Shop& shop, const std::vector<const Entry*>& entries) {
  Json list = Json::array();
  for (const Entry* const entry : entries) list.push_back(JsonOf(shop, *entry));
  return {{"devices", std::move(list)}};
}

std::string TableOf(const std::vector<const Entry*>& entries, const Context& context) {
  std::vector<std::vector<std::string>> rows = {{context.Heading(Translatable("name")),
                                                 context.Heading(Translatable("kind")),
                                                 context.Heading(Translatable("letters"))}};
  rows.reserve(entries.size() + 1);
  for (const Entry* const entry : entries) {
    rows.push_back({OneLine(entry->name), KindOf(*entry), catalogue::LettersText(entry->params)});
  }
  return Columns(rows, "lll");
}

std::string PageOf(const Shop& shop, const Entry& entry, const Context& context) {
  std::vector<std::vector<std::string>> rows = {{context.Heading(Translatable("kind")), KindOf(entry)}};
  for (const devices::Letter& each : devices::LettersOf(entry.params.type)) {
    rows.push_back({LabelOf(each, context),
                    catalogue::LetterText(entry.params, each.letter).substr(2) + UnitOf(each.unit, context)});
  }
  const Json* const figures = shop.maker.Find(entry.name);
  for (const catalogue::MakerKey& key : catalogue::MakerKeys()) {
    if (figures == nullptr || !figures->contains(key.key)) continue;
    const std::string unit = *key.unit == '\0' ? "" : " " + std::string(key.unit);
    rows.push_back({context.Heading(key.name), OneLine(catalogue::MakerText((*figures)[key.key])) + unit});
  }
  return OneLine(entry.name) + "\n" + Columns(rows, "ll", "  ");
}

std::string LineOf(const Entry& entry) {
  return OneLine(entry.name) + ": " + KindOf(entry) + "  " + catalogue::LettersText(entry.params);
}

}  // namespace vanzet::cli
