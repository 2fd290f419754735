#include "check/report.h"

#include <algorithm>
#include <cmath>

#include <nlohmann/json.hpp>

#include "base/number_text.h"

namespace vanzet::check {
namespace {

using Json = nlohmann::ordered_json;

std::string LengthForPeople(double millimetres, LengthUnit unit) {
  const int decimals = unit == LengthUnit::kInch ? 4 : 2;
  return ShortDecimalText(InUnit(millimetres, unit), decimals) + " " + std::string(WordOf(unit));
}

std::string ValueText(const Change& change, double value, LengthUnit unit) {
  if (change.unit == nullptr) return LengthForPeople(value, unit);
  return ShortDecimalText(value, 2) + " " + change.unit;
}

std::string TermText(const Term& term, LengthUnit unit) {
  if (const auto* const length = std::get_if<Length>(&term))
    return LengthForPeople(length->millimetres, unit);
  if (const auto* const number = std::get_if<Number>(&term)) return ShortDecimalText(number->value, 2);
  return std::get<std::string>(term);
}

/// Puts the terms into the places of a text; a place that a term brings stays as it is.
std::string Filled(std::string_view text, const std::vector<std::string>& terms) {
  std::string filled;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto number = i + 1 < text.size() ? static_cast<std::size_t>(text[i + 1] - '1') : terms.size();
    if (text[i] != '%' || number >= terms.size()) {
      filled += text[i];
      continue;
    }
    filled += terms[number];
    ++i;
  }
  return filled;
}

std::string TranslatedWith(const char* english, const std::vector<std::string>& terms, const Style& style) {
  return Filled(style.texts.Translate(kTextSection, english), terms);
}

/// To a ten-thousandth of a millimetre: what is computed is not more exact.
double Rounded(double number) {
  constexpr double kSteps = 1e4;
  return std::round(number * kSteps) / kSteps;
}

/// The places of findings as people call them.
constexpr const char* kPlaces[] = {Translatable("main spindle"), Translatable("sub spindle"),
                                   Translatable("center"), Translatable("steady rest"),
                                   Translatable("datum")};

std::string LineOf(const Finding& finding, const Style& style) {
  const auto place = PlaceText(finding.where, style.texts);
  const std::string spur = TranslatedWith(Translatable("spur %1"), {std::to_string(finding.spur)}, style);
  const auto severity = style.texts.Translate(kTextSection, WordOf(finding.severity));
  return spur + ", " + std::string(place) + ": " + std::string(severity) + " " +
         std::string(finding.rule->id) + ": " + TextOf(finding, style) + "\n";
}

}  // namespace

std::string_view PlaceText(Where where, const Translations& texts) {
  return texts.Translate(kTextSection, kPlaces[static_cast<std::size_t>(where)]);
}

std::string TextOf(const Finding& finding, const Style& style) {
  std::vector<std::string> terms;
  for (const Term& term : finding.sentence.terms) terms.push_back(TermText(term, style.unit));
  std::string text = TranslatedWith(finding.sentence.english, terms, style);
  if (!finding.change) return text;
  const Change& change = *finding.change;
  return text + " " +
         TranslatedWith(
             Translatable("Change %1 from %2 to %3."),
             {std::string(style.texts.Translate(kTextSection, change.value)),
              ValueText(change, change.from, style.unit), ValueText(change, change.to, style.unit)},
             style);
}

Counts CountsOf(const std::vector<Finding>& findings) {
  const auto count = [&](Severity severity) {
    return static_cast<int>(std::ranges::count(findings, severity, &Finding::severity));
  };
  return {count(Severity::kError), count(Severity::kWarning), count(Severity::kNote)};
}

std::string CountText(const Counts& counts, const Translations& texts) {
  return TranslatedWith(
      Translatable("Errors: %1, warnings: %2, notes: %3"),
      {std::to_string(counts.errors), std::to_string(counts.warnings), std::to_string(counts.notes)},
      {texts});
}

std::string PageOf(const std::vector<Finding>& findings, const Style& style) {
  if (findings.empty()) return TranslatedWith(Translatable("Nothing was found."), {}, style) + "\n";
  std::string page;
  for (const Finding& finding : findings) page += LineOf(finding, style);
  return page + CountText(CountsOf(findings), style.texts) + "\n";
}

Json JsonOfOne(const Finding& finding, const Style& style) {
  Json values = Json::object();
  for (const auto& [name, number] : finding.values) values[name] = Rounded(number);
  Json json = {{"rule", finding.rule->id},       {"severity", WordOf(finding.severity)},
               {"spur", finding.spur},           {"where", WordOf(finding.where)},
               {"text", TextOf(finding, style)}, {"values", std::move(values)}};
  if (finding.at) json["at"] = {{"x", Rounded(finding.at->x)}, {"r", Rounded(finding.at->y)}};
  if (finding.at && finding.area && Rounded(finding.area->degrees) != 0)
    json["at"]["angle"] = Rounded(finding.area->degrees);
  if (const auto& change = finding.change)
    json["change"] = {
        {"value", KeyOf(*change)}, {"from", Rounded(change->from)}, {"to", Rounded(change->to)}};
  if (finding.part != show::Part::kNone) json["part"] = show::WordOf(finding.part);
  if (!finding.bodies.empty()) json["bodies"] = finding.bodies;
  return json;
}

Json JsonOf(const std::vector<Finding>& findings, const Style& style) {
  Json list = Json::array();
  for (const Finding& finding : findings) list.push_back(JsonOfOne(finding, style));
  const Counts counts = CountsOf(findings);
  return {{"findings", std::move(list)},
          {"counts", {{"error", counts.errors}, {"warning", counts.warnings}, {"note", counts.notes}}}};
}

}  // namespace vanzet::check
