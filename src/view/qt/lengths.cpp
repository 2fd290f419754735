#include "view/qt/lengths.h"

#include <QtGlobal>

#include "base/number_text.h"
#include "base/numbers.h"

namespace vanzet::view::qt {
namespace {

/// The number in a text as the dialog reads it, with a comma or a point; empty for none.
std::optional<double> NumberIn(const QString& text) {
  return WholeReal(text.trimmed().replace(QLatin1Char(','), QLatin1Char('.')).toStdString());
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

QString ShownText(const Control& control, const QString& typed, LengthUnit unit) {
  const QString text = QString::fromStdString(control.text);
  if (unit == LengthUnit::kMillimetre || !control.number || text.trimmed().isEmpty()) return text;
  const auto number = NumberIn(typed);
  if (number && InMillimetres(*number, unit) == *control.number) return typed;
  return QString::fromStdString(LengthText(*control.number, unit));
}

}  // namespace vanzet::view::qt
