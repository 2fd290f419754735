#pragma once

#include <string>

/// Numbers as text, the same under every locale; base/numbers.h reads them back.
namespace vanzet {

/// The number as "%.*f" writes it in the C locale.
std::string FixedText(double value, int decimals);

/// The number as "%.*g" writes it in the C locale. Requires: at most 17 digits.
std::string GeneralText(double value, int digits = 6);

/// The shortest text that reads back as the same number.
std::string ExactText(double value);

/// `GeneralText` and `FixedText` for people and for files of other programs: no zero has a sign.
std::string NumberText(double value, int digits = 6);
std::string DecimalText(double value, int decimals);

/// `DecimalText` without the zeros at its end: "12.5", "0", "-0.000001". Requires: at least one decimal.
std::string ShortDecimalText(double value, int decimals);

}  // namespace vanzet
