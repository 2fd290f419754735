#pragma once

#include <string>

namespace vanzet::contour {

/// A number as "%.*g" writes it under the C locale, whatever the locale is; no zero has a sign.
std::string Number(double value, int digits);

/// The same by "%.*f".
std::string Fixed(double value, int decimals);

/// The digits that the contour text form has.
inline constexpr int kTextDigits = 14;

}  // namespace vanzet::contour
