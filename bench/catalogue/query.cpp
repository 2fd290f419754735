#include "catalogue/query.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <sstream>

#include "base/letter_case.h"
#include "base/numbers.h"
#include "base/quote.h"
#include "catalogue/kinds.h"
#include "devices/kinds.h"

namespace vanzet::catalogue {
namespace {

constexpr double kUnbounded = std::numeric_limits<double>::infinity();

/// Half of the last decimal that the catalogue keeps.
constexpr double kRounding = 0.5e-6;

/// An end of a range; `open` when it is left out.
std::optional<double> EndOf(std::string_view text, double open) {
  return text.empty() ? std::optional(open) : WholeReal(text);
}

bool IsLetter(std::string_view key) {
  return key.size() == 1 && key.front() >= 'A' && key.front() <= 'J';
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = SmallLetter(c);
  return lower;
}

bool IsWithin(double value, const Condition& condition) {
  return value >= condition.least - kRounding && value <= condition.most + kRounding;
}

/// A range of a maker fits when it reaches into that of the condition.
bool FigureFits(const MakerJson& figure, const Condition& condition) {
  if (figure.is_number()) return IsWithin(figure.get<double>(), condition);
  return figure.is_array() && figure[1].get<double>() >= condition.least - kRounding &&
         figure[0].get<double>() <= condition.most + kRounding;
}

bool Fits(const Condition& condition, const Entry& entry, const MakerJson* figures) {
  if (IsLetter(condition.key)) {
    const char letter = condition.key.front();
    return devices::FindLetter(entry.params.type, letter) != nullptr &&
           IsWithin(ValueOf(entry.params, letter), condition);
  }
  return figures != nullptr && figures->contains(condition.key) &&
         FigureFits((*figures)[condition.key], condition);
}

/// All texts of a device in small letters, to be searched by words.
std::string TextsOf(const Entry& entry, const MakerJson* figures) {
  std::string text = Lower(entry.name);
  text.append("\n").append(KindWord(entry.params.type));
  if (figures == nullptr) return text;
  for (const MakerJson& figure : *figures) text += "\n" + Lower(MakerText(figure));
  return text;
}

bool HasWords(const Query& query, const Entry& entry, const MakerJson* figures) {
  if (query.words.empty()) return true;
  const std::string text = TextsOf(entry, figures);
  return std::ranges::all_of(query.words,
                             [&](const std::string& word) { return text.find(word) != std::string::npos; });
}

}  // namespace

Result<Condition> ConditionOf(const std::string& text) {
  const Fault wrong{"expected KEY=NUMBER or KEY=NUMBER..NUMBER, found " + Quoted(text)};
  const std::size_t sign = text.find('=');
  if (sign == std::string::npos) return wrong;
  const std::string key = text.substr(0, sign), value = text.substr(sign + 1);
  const MakerKey* const row = FindMakerKey(key);
  const bool isFigure = row != nullptr && row->value != MakerValue::kText;
  if (value.empty() || (!IsLetter(key) && !isFigure)) return wrong;
  const std::size_t dots = value.find("..");
  const std::string first = value.substr(0, dots);
  const auto least = EndOf(first, -kUnbounded);
  const auto most = dots == std::string::npos ? least : EndOf(value.substr(dots + 2), kUnbounded);
  if (!least || !most || *least > *most) return wrong;
  return Condition{key, *least, *most};
}

Query QueryOf(const std::string& text) {
  Query query;
  std::istringstream words(text);
  for (std::string word; words >> word;) {
    if (const auto condition = ConditionOf(word)) {
      query.conditions.push_back(*condition);
    } else {
      query.words.push_back(Lower(word));
    }
  }
  return query;
}

std::vector<const Entry*> Search(const Shop& shop, const Query& query) {
  std::vector<const Entry*> found;
  for (const Entry& entry : shop.catalogue.entries()) {
    if (!query.types.empty() && std::ranges::find(query.types, entry.params.type) == query.types.end())
      continue;
    const MakerJson* const figures = shop.maker.Find(entry.name);
    const bool fits = std::ranges::all_of(
        query.conditions, [&](const Condition& condition) { return Fits(condition, entry, figures); });
    if (fits && HasWords(query, entry, figures)) found.push_back(&entry);
  }
  return found;
}

}  // namespace vanzet::catalogue
