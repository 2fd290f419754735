#include "catalogue/rules.h"

#include <algorithm>
#include <cmath>

#include "base/number_text.h"
#include "base/numbers.h"
#include "catalogue/catalogue.h"
#include "catalogue/kinds.h"
#include "define/tables.h"
#include "devices/kinds.h"
#include "devices/page_rules.h"
#include "devices/solid_check.h"

namespace vanzet::catalogue {
namespace {

using devices::Letter;

constexpr int kDecimals = 6, kShownDecimals = 8;

/// A value with eight decimals at most. Those of a catalogue have no more, and their shortest text is found
/// much more quickly than the decimals of a number that may have many.
std::string Text(double value) {
  std::string text = ExactText(value);
  const std::size_t point = std::min(text.find('.'), text.size() - 1);
  const bool isPlain =
      text.find('e') == std::string::npos && text.size() - point <= kShownDecimals + 1 && value != 0;
  return isPlain ? text : ShortDecimalText(value, kShownDecimals);
}

bool IsControl(char c) {
  return static_cast<unsigned char>(c) < ' ';
}

/// "the letters B (Overall length) and C".
std::string MissingRefusal(const DeviceParams& params) {
  std::string list;
  for (const char letter : devices::MissingLetters(params)) {
    list += (list.empty() ? "" : ", ") + std::string(1, letter);
    const char* const name = devices::FindLetter(params.type, letter)->name;
    if (*name != '\0') list += " (" + std::string(name) + ")";
  }
  return list.empty() ? "" : "a " + std::string(KindWord(params.type)) + " needs a value of " + list;
}

std::string LimitRefusal(const Letter& letter, double value, LengthUnit unit) {
  const define::Quantity limits = define::QuantityOf(letter);
  if (value >= limits.least && value <= limits.most) return "";
  const auto shown = [&](double each) {
    return Text(letter.unit == devices::Unit::kMillimetre ? RoundedInUnit(each, unit) : each);
  };
  return std::string(1, letter.letter) + " (" + shown(value) + ") must be from " + shown(limits.least) +
         " to " + shown(limits.most);
}

}  // namespace

std::string NameRefusal(std::string_view name) {
  if (std::ranges::all_of(name, [](char c) { return IsWhiteSpace(c); }))
    return "the name of a device is empty";
  if (std::ranges::any_of(name, IsControl)) return "the name of a device has a control character";
  if (name.size() <= define::kLongestText) return "";
  return "the name of a device has more than " + std::to_string(define::kLongestText) + " bytes";
}

std::string ValuesRefusal(const DeviceParams& params, LengthUnit unit) {
  if (devices::KindOf(params.type) == nullptr) return "the type of the device is unknown";
  if (std::string refusal = MissingRefusal(params); !refusal.empty()) return refusal;
  const auto fault = devices::FindSolidFault(params, ShownIn(params, unit));
  for (const Letter& letter : devices::LettersOf(params.type)) {
    const bool isNamed = fault && fault->letters.find(letter.letter) != std::string::npos;
    std::string refusal = LimitRefusal(letter, ValueOf(params, letter.letter), unit);
    if (!refusal.empty() && !isNamed) return refusal;
  }
  return fault ? fault->reason : "";
}

DeviceParams Rounded(DeviceParams params) {
  for (double DeviceParams::*const real : kDeviceReals) {
    params.*real = RealOrZero(FixedText(params.*real, kDecimals));
  }
  return Normalised(params);
}

std::string LetterText(const DeviceParams& params, char letter) {
  return std::string(1, letter) + " " + Text(ValueOf(params, letter));
}

std::string LettersText(const DeviceParams& params) {
  std::string text;
  AppendLetters(text, params);
  return text;
}

void AppendLetters(std::string& text, const DeviceParams& params) {
  bool isFirst = true;
  for (const Letter& letter : devices::LettersOf(params.type)) {
    if (!isFirst) text += "  ";
    isFirst = false;
    text += letter.letter;
    text += ' ';
    text += Text(ValueOf(params, letter.letter));
  }
}

}  // namespace vanzet::catalogue
