#include "view/shared/lengths.h"

#include <algorithm>

#include "base/files/environment.h"
#include "base/number_text.h"
#include "base/numbers.h"
#include "view/shared/texts.h"

namespace vanzet::view {
namespace {

constexpr std::size_t kDecimals = 4;

/// The number in a text as the dialog reads it, with a comma or a point; empty for none.
std::optional<double> NumberIn(std::string text) {
  std::ranges::replace(text, ',', '.');
  return WholeReal(text);
}

/// The text of a number with the decimal sign of the language.
std::string WithDecimalSign(std::string text) {
  std::ranges::replace(text, text.find(',') == std::string::npos ? '.' : ',', DecimalSign());
  return text;
}

/// The dialog's number for one that was typed.
double InDialog(double typed, LengthUnit unit) {
  return unit == LengthUnit::kMillimetre ? typed : InMillimetres(typed, unit);
}

bool HasNumber(const Control& control) {
  return control.number && !std::ranges::all_of(control.text, IsWhiteSpace);
}

/// The text of a control with every digit. Requires: it has a number.
std::string ExactShown(const Control& control, LengthUnit unit) {
  return WithDecimalSign(unit == LengthUnit::kMillimetre ? control.text : LengthText(*control.number, unit));
}

}  // namespace

LengthUnit ShownUnit() {
  return LengthUnitNamed(files::EnvironmentText("VANZET_UNIT")).value_or(LengthUnit::kMillimetre);
}

std::string DialogText(const std::string& typed, LengthUnit unit) {
  const auto number = unit == LengthUnit::kMillimetre ? std::nullopt : NumberIn(typed);
  return number ? ExactText(InMillimetres(*number, unit)) : typed;
}

std::string EditedText(const Control& control, const std::string& typed, LengthUnit unit) {
  if (!HasNumber(control)) return control.text;
  const auto number = NumberIn(typed);
  const bool isTheSame = number && InDialog(*number, unit) == *control.number;
  return isTheSame ? typed : ExactShown(control, unit);
}

std::string RestingText(const Control& control, LengthUnit unit) {
  return HasNumber(control) ? Shortened(ExactShown(control, unit)) : control.text;
}

std::string Shortened(const std::string& text) {
  const auto number = NumberIn(text);
  const std::size_t sign = text.find_last_of(".,");
  if (!number || sign == std::string::npos || Trimmed(text.substr(sign)).size() <= kDecimals + 1) return text;
  const std::string rounded = ShortDecimalText(*number, static_cast<int>(kDecimals));
  // No other number is shown as 0.
  return *number != 0 && NumberIn(rounded) == 0.0 ? text : WithDecimalSign(rounded);
}

std::string LengthLabel(double millimetres) {
  return Shortened(WithDecimalSign(LengthText(millimetres, ShownUnit())));
}

}  // namespace vanzet::view
