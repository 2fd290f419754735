#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

/// Numbers out of text, the same under every locale: the point separates decimals, white space is the
/// blank, tab, line feed, vertical tab, form feed and carriage return.
namespace vanzet {

bool IsWhiteSpace(char c);

/// A number and the number of characters it takes, with the white space before it.
template <class Number>
struct Prefix {
  Number value;
  std::size_t used;
};

/// The decimal integer that `text` begins with, after white space and with an optional sign.
/// Nothing when the text has no integer there or when it does not fit in 32 bits.
std::optional<Prefix<std::int32_t>> IntegerPrefix(std::string_view text);

/// The real that `text` begins with, as the C library reads one in the C locale: after white space, with an
/// optional sign, decimal or hexadecimal ("0x"), or "inf", "infinity", "nan" in any case.
/// Nothing when the text has no real there or when a double cannot hold it.
std::optional<Prefix<double>> RealPrefix(std::string_view text);

/// The integer that the whole text is, white space around it allowed.
std::optional<std::int32_t> WholeInteger(std::string_view text);

/// The finite real that the whole text is, white space around it allowed.
std::optional<double> WholeReal(std::string_view text);

/// Reads as the C library's `atoi`: 0 without a number; the nearest integer where one does not fit.
std::int32_t IntegerOrZero(std::string_view text);

/// Reads as the C library's `atof`, but for numbers that no double holds: 0 for them, and without a number.
double RealOrZero(std::string_view text);

}  // namespace vanzet
