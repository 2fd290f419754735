#include "host/fields.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "base/numbers.h"

namespace vanzet::host {
namespace {

std::size_t AfterWhiteSpace(const std::string& text, std::size_t position) {
  position = std::min(position, text.size());
  while (position < text.size() && IsWhiteSpace(text[position])) ++position;
  return position;
}

template <class Number, class Out>
std::size_t Assign(const std::optional<Prefix<Number>>& number, Out& out) {
  if (!number) return 0;
  out = static_cast<Out>(number->value);
  return number->used;
}

/// The frame of the three field readers; `parse` is the reader of a prefix of that kind.
template <class Out>
std::size_t ReadField(std::size_t (*parse)(const std::string&, Out&), const std::string& text,
                      std::size_t& position, Out& out, Out defaultValue) {
  position = AfterWhiteSpace(text, position);
  const std::size_t used = parse(text.substr(position), out);
  if (used == 0) out = defaultValue;
  position += used;
  return used;
}

}  // namespace

std::size_t ParseIntPrefix(const std::string& text, std::int32_t& out) {
  return Assign(IntegerPrefix(text), out);
}

std::size_t ParseBoolPrefix(const std::string& text, bool& out) {
  return Assign(IntegerPrefix(text), out);
}

std::size_t ParseRealPrefix(const std::string& text, double& out) {
  return Assign(RealPrefix(text), out);
}

std::size_t ReadIntField(const std::string& text, std::size_t& position, std::int32_t& out,
                         std::int32_t defaultValue) {
  return ReadField(ParseIntPrefix, text, position, out, defaultValue);
}

std::size_t ReadBoolField(const std::string& text, std::size_t& position, bool& out, bool defaultValue) {
  return ReadField(ParseBoolPrefix, text, position, out, defaultValue);
}

std::size_t ReadRealField(const std::string& text, std::size_t& position, double& out, double defaultValue) {
  return ReadField(ParseRealPrefix, text, position, out, defaultValue);
}

std::size_t FindFirstToken(const std::string& text, std::size_t /*position*/, std::size_t& length) {
  const std::size_t start = AfterWhiteSpace(text, 0);
  std::size_t end = start;
  if (start < text.size() && text[start] != '\'') {
    while (end < text.size() && !IsWhiteSpace(text[end])) ++end;
  }
  length = end - start;
  return start;
}

}  // namespace vanzet::host
