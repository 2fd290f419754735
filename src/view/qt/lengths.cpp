#include "view/qt/lengths.h"

#include <QLocale>
#include <algorithm>

#include "base/number_text.h"
#include "base/numbers.h"
#include "view/qt/texts.h"

namespace vanzet::view::qt {
namespace {

constexpr int kDecimals = 4;

/// The number in a text as the dialog reads it, with a comma or a point; empty for none.
std::optional<double> NumberIn(const QString& text) {
  return WholeReal(text.trimmed().replace(QLatin1Char(','), QLatin1Char('.')).toStdString());
}

/// The text of a number with the decimal sign of the language.
QString WithDecimalSign(QString text) {
  const QString sign = QLocale(LanguageOfTexts()).decimalPoint();
  return text.replace(QLatin1Char(text.contains(QLatin1Char(',')) ? ',' : '.'), sign);
}

/// The dialog's number for one that was typed.
double InDialog(double typed, LengthUnit unit) {
  return unit == LengthUnit::kMillimetre ? typed : InMillimetres(typed, unit);
}

bool HasNumber(const Control& control) {
  return control.number && !QString::fromStdString(control.text).trimmed().isEmpty();
}

/// The text of a control with every digit. Requires: it has a number.
QString ExactShown(const Control& control, LengthUnit unit) {
  return WithDecimalSign(QString::fromStdString(
      unit == LengthUnit::kMillimetre ? control.text : LengthText(*control.number, unit)));
}

}  // namespace

LengthUnit ShownUnit() {
  const std::string word = qEnvironmentVariable("VANZET_UNIT").toStdString();
  return LengthUnitNamed(word).value_or(LengthUnit::kMillimetre);
}

std::string DialogText(const QString& typed, LengthUnit unit) {
  const auto number = unit == LengthUnit::kMillimetre ? std::nullopt : NumberIn(typed);
  return number ? ExactText(InMillimetres(*number, unit)) : typed.toStdString();
}

QString EditedText(const Control& control, const QString& typed, LengthUnit unit) {
  if (!HasNumber(control)) return QString::fromStdString(control.text);
  const auto number = NumberIn(typed);
  const bool isTheSame = number && InDialog(*number, unit) == *control.number;
  return isTheSame ? typed : ExactShown(control, unit);
}

QString RestingText(const Control& control, LengthUnit unit) {
  if (!HasNumber(control)) return QString::fromStdString(control.text);
  return Shortened(ExactShown(control, unit));
}

QString Shortened(const QString& text) {
  const auto number = NumberIn(text);
  const qsizetype sign = std::max(text.indexOf(QLatin1Char('.')), text.indexOf(QLatin1Char(',')));
  if (!number || sign < 0 || text.trimmed().size() - sign - 1 <= kDecimals) return text;
  const QString rounded = QString::fromStdString(ShortDecimalText(*number, kDecimals));
  // No other number is shown as 0.
  return *number != 0 && NumberIn(rounded) == 0.0 ? text : WithDecimalSign(rounded);
}

QString LengthLabel(double millimetres) {
  return Shortened(WithDecimalSign(QString::fromStdString(LengthText(millimetres, ShownUnit()))));
}

}  // namespace vanzet::view::qt
