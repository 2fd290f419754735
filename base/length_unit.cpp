#include "base/length_unit.h"

#include <cmath>

#include "base/number_text.h"

namespace vanzet {
namespace {

constexpr double kMillimetresOfInch = 25.4;
constexpr int kDecimalsOfMillimetre = 6, kDecimalsOfInch = 8;

/// A value so large that it has no decimals stays as it is.
double Rounded(double value, int decimals) {
  const double factor = std::pow(10.0, decimals);
  const double rounded = std::round(value * factor) / factor;
  return std::isfinite(rounded) ? rounded : value;
}

}  // namespace

std::string_view WordOf(LengthUnit unit) {
  return unit == LengthUnit::kInch ? "inch" : "mm";
}

std::optional<LengthUnit> LengthUnitNamed(std::string_view word) {
  for (const LengthUnit unit : {LengthUnit::kMillimetre, LengthUnit::kInch}) {
    if (word == WordOf(unit)) return unit;
  }
  return std::nullopt;
}

double InUnit(double millimetres, LengthUnit unit) {
  return unit == LengthUnit::kInch ? millimetres / kMillimetresOfInch : millimetres;
}

double InMillimetres(double length, LengthUnit unit) {
  return unit == LengthUnit::kInch ? Rounded(length * kMillimetresOfInch, kDecimalsOfMillimetre) : length;
}

double RoundedInUnit(double millimetres, LengthUnit unit) {
  const double length = InUnit(millimetres, unit);
  return unit == LengthUnit::kInch ? Rounded(length, kDecimalsOfInch) : length;
}

double VolumeInUnit(double cubicMillimetres, LengthUnit unit) {
  return InUnit(InUnit(InUnit(cubicMillimetres, unit), unit), unit);
}

std::string LengthText(double millimetres, LengthUnit unit) {
  return ShortDecimalText(InUnit(millimetres, unit),
                          unit == LengthUnit::kInch ? kDecimalsOfInch : kDecimalsOfMillimetre);
}

}  // namespace vanzet
