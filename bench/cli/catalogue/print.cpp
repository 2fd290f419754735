#include "cli/catalogue/print.h"

#include <algorithm>

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

constexpr std::string_view kUnknown = "-";

std::string_view KindOf(const Entry& entry) {
  const std::string_view word = catalogue::KindWord(entry.params.type);
  return word.empty() ? kUnknown : word;
}

/// Appends a cell of a column, and the gap after it. A list can have a hundred thousand rows.
void AppendLeft(std::string& text, std::string_view cell, std::size_t width) {
  text.append(cell).append(width + 2 - Width(cell), ' ');
}

std::string UnitOf(devices::Unit of, LengthUnit unit, const Context& context) {
  if (of == devices::Unit::kDegree) return " " + context.Heading(Translatable("degrees"));
  return of == devices::Unit::kMillimetre ? " " + std::string(WordOf(unit)) : "";
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

Json UnitJson(LengthUnit unit) {
  if (unit == LengthUnit::kMillimetre) return Json::object();
  return {{define::kUnitKey, WordOf(unit)}};
}

Json JsonOf(const Shop& shop, const std::vector<const Entry*>& entries, LengthUnit unit) {
  Json list = Json::array();
  for (const Entry* const entry : entries) list.push_back(JsonOf(shop, *entry));
  Json json = UnitJson(unit);
  json["devices"] = std::move(list);
  return json;
}

std::string TableOf(const std::vector<const Entry*>& entries, const Context& context) {
  const std::string name = context.Heading(Translatable("name")),
                    kind = context.Heading(Translatable("kind"));
  std::size_t nameWidth = Width(name), kindWidth = Width(kind), bytes = 0;
  std::vector<std::string_view> kinds;
  kinds.reserve(entries.size());
  for (const Entry* const entry : entries) {
    nameWidth = std::max(nameWidth, Width(OneLine(entry->name)));
    kindWidth = std::max(kindWidth, kinds.emplace_back(KindOf(*entry)).size());
    bytes += entry->bytes.size();
  }
  std::string text = Left(name, nameWidth) + "  " + Left(kind, kindWidth) + "  " +
                     context.Heading(Translatable("letters")) + "\n";
  text.reserve(text.size() + bytes + entries.size() * kindWidth);
  for (std::size_t i = 0; i < entries.size(); ++i) {
    AppendLeft(text, OneLine(entries[i]->name), nameWidth);
    AppendLeft(text, kinds[i], kindWidth);
    catalogue::AppendLetters(text, entries[i]->params);
    text += '\n';
  }
  return text;
}

std::string PageOf(const Shop& shop, const Entry& entry, LengthUnit unit, const Context& context) {
  std::vector<std::vector<std::string>> rows = {
      {context.Heading(Translatable("kind")), std::string(KindOf(entry))}};
  for (const devices::Letter& each : devices::LettersOf(entry.params.type)) {
    rows.push_back({LabelOf(each, context), catalogue::LetterText(entry.params, each.letter).substr(2) +
                                                UnitOf(each.unit, unit, context)});
  }
  const Json* const figures = shop.maker.Find(entry.name);
  for (const catalogue::MakerKey& key : catalogue::MakerKeys()) {
    if (figures == nullptr || !figures->contains(key.key)) continue;
    const std::string word = key.IsLength() ? std::string(WordOf(unit)) : key.unit;
    rows.push_back({context.Heading(key.name),
                    OneLine(catalogue::MakerText((*figures)[key.key])) + (word.empty() ? "" : " " + word)});
  }
  return OneLine(entry.name) + "\n" + Columns(rows, "ll", "  ");
}

std::string LineOf(const Entry& entry) {
  return OneLine(entry.name) + ": " + std::string(KindOf(entry)) + "  " +
         catalogue::LettersText(entry.params);
}

}  // namespace vanzet::cli
