#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The unit in which people read and type lengths. All programs compute and store millimetres.
namespace vanzet {

enum class LengthUnit { kMillimetre, kInch };

/// "mm" and "inch".
std::string_view WordOf(LengthUnit unit);

/// The unit of such a word; empty for any other word.
std::optional<LengthUnit> LengthUnitNamed(std::string_view word);

/// A length in that unit, of one in millimetres.
double InUnit(double millimetres, LengthUnit unit);

/// A length in millimetres, of one in that unit. Inches are rounded to six decimals of a millimetre,
/// which is what stores keep: 3 inches are 76.2 mm.
double InMillimetres(double length, LengthUnit unit);

/// A length of millimetres in that unit, rounded so that `InMillimetres` returns the same six decimals: to
/// eight decimals of an inch. Millimetres stay as they are.
double RoundedInUnit(double millimetres, LengthUnit unit);

/// A volume in the cube of that unit, of one in cubic millimetres.
double VolumeInUnit(double cubicMillimetres, LengthUnit unit);

/// A length of millimetres as text for people, rounded like that: "42" or "1.65354331". Millimetres have six
/// decimals at most.
std::string LengthText(double millimetres, LengthUnit unit);

}  // namespace vanzet
