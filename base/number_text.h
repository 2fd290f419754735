#pragma once

#include <string>

/// Numbers as text, the same under every locale; the way back is base/numbers.h.
namespace vanzet {

/// As "%.*f" writes it in the C locale.
std::string FixedText(double value, int decimals);

/// As "%.*g" does. Requires: at most 17 digits.
std::string GeneralText(double value, int digits);

/// The shortest text that reads back as the same number.
std::string ExactText(double value);

}  // namespace vanzet
