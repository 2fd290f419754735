#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

/// Numbers out of text, the same under every locale: the point separates decimals, white space is the
/// blank, tab, line feed, vertical tab, form feed and carriage return.
namespace vanzet {

bool IsWhiteSpace(char c);

/// A number and the characters it took, white space before it included.
template <class Number>
struct Prefix {
  Number value;
  std::size_t used;
};

/// The decimal integer that `text` begins with, behind white space and with an optional sign.
/// Nothing when there is none or when it does not fit in 32 bits.
std::optional<Prefix<std::int32_t>> IntegerPrefix(std::string_view text);

/// The real that `text` begins with, as the C library reads one in the C locale: behind white space, with an
/// optional sign, decimal or hexadecimal ("0x"), or "inf", "infinity", "nan" in any case.
/// Nothing when there is none or when a double cannot hold it.
std::optional<Prefix<double>> RealPrefix(std::string_view text);

/// The integer that the whole text is, white space around it allowed.
std::optional<std::int32_t> WholeInteger(std::string_view text);

/// The finite real that the whole text is, white space around it allowed.
std::optional<double> WholeReal(std::string_view text);

/// As the C library's `atoi`: 0 where no number stands; what does not fit becomes the nearest that does.
std::int32_t IntegerOrZero(std::string_view text);

/// As the C library's `atof`, but for numbers that no double holds: 0 for them, and where no number stands.
double RealOrZero(std::string_view text);

}  // namespace vanzet
