#include "base/numbers.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace vanzet {
namespace {

std::size_t WhiteSpaceBefore(std::string_view text) {
  std::size_t n = 0;
  while (n < text.size() && IsWhiteSpace(text[n])) ++n;
  return n;
}

bool OnlyWhiteSpaceFrom(std::string_view text, std::size_t position) {
  return position + WhiteSpaceBefore(text.substr(position)) == text.size();
}

/// The characters before the digits: white space and a sign.
struct Lead {
  std::size_t length;
  bool negative;
};

Lead LeadOf(std::string_view text) {
  const std::size_t blanks = WhiteSpaceBefore(text);
  if (blanks == text.size()) return {blanks, false};
  const bool signedNumber = text[blanks] == '-' || text[blanks] == '+';
  return {blanks + (signedNumber ? 1 : 0), text[blanks] == '-'};
}

bool BeginsHexadecimal(std::string_view digits) {
  return digits.size() > 2 && digits[0] == '0' && (digits[1] == 'x' || digits[1] == 'X');
}

/// A decimal integer of any size, the sign apart.
std::from_chars_result ReadMagnitude(std::string_view digits, std::uint64_t& magnitude) {
  const std::from_chars_result read =
      std::from_chars(digits.data(), digits.data() + digits.size(), magnitude);
  if (read.ec == std::errc::result_out_of_range) magnitude = std::numeric_limits<std::uint64_t>::max();
  return read;
}

}  // namespace

bool IsWhiteSpace(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

std::optional<Prefix<std::int32_t>> IntegerPrefix(std::string_view text) {
  const Lead lead = LeadOf(text);
  const std::string_view digits = text.substr(lead.length);
  std::uint64_t magnitude = 0;
  const std::from_chars_result read = ReadMagnitude(digits, magnitude);
  const std::uint64_t limit = lead.negative ? 2147483648U : 2147483647U;
  if (read.ec != std::errc{} || magnitude > limit) return std::nullopt;
  const auto value = static_cast<std::int64_t>(magnitude);
  return Prefix<std::int32_t>{static_cast<std::int32_t>(lead.negative ? -value : value),
                              lead.length + static_cast<std::size_t>(read.ptr - digits.data())};
}

std::optional<Prefix<double>> RealPrefix(std::string_view text) {
  const Lead lead = LeadOf(text);
  std::string_view digits = text.substr(lead.length);
  // from_chars would accept a second sign, which this format does not have.
  if (digits.empty() || digits.front() == '-') return std::nullopt;
  double value = 0;
  std::from_chars_result read{digits.data(), std::errc::invalid_argument};
  if (BeginsHexadecimal(digits) && digits[2] != '-') {
    read = std::from_chars(digits.data() + 2, digits.data() + digits.size(), value, std::chars_format::hex);
  }
  if (read.ec == std::errc::invalid_argument) {
    read = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  }
  if (read.ec != std::errc{}) return std::nullopt;
  return Prefix<double>{lead.negative ? -value : value,
                        lead.length + static_cast<std::size_t>(read.ptr - digits.data())};
}

std::optional<std::int32_t> WholeInteger(std::string_view text) {
  const auto number = IntegerPrefix(text);
  if (!number || !OnlyWhiteSpaceFrom(text, number->used)) return std::nullopt;
  return number->value;
}

std::optional<double> WholeReal(std::string_view text) {
  const auto number = RealPrefix(text);
  if (!number || !std::isfinite(number->value) || !OnlyWhiteSpaceFrom(text, number->used))
    return std::nullopt;
  return number->value;
}

std::int32_t IntegerOrZero(std::string_view text) {
  if (const auto number = IntegerPrefix(text)) return number->value;
  const Lead lead = LeadOf(text);
  std::uint64_t magnitude = 0;
  if (ReadMagnitude(text.substr(lead.length), magnitude).ec == std::errc::invalid_argument) return 0;
  using Limits = std::numeric_limits<std::int32_t>;
  return lead.negative ? Limits::min() : Limits::max();
}

double RealOrZero(std::string_view text) {
  const auto number = RealPrefix(text);
  return number ? number->value : 0.0;
}

}  // namespace vanzet
