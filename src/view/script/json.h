#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// JSON on one line, keys in the order in which they are given.
namespace vanzet::view {

/// The text as a JSON string, quotes included. Bytes that are not UTF-8 become U+FFFD; all control characters
/// are escaped, also those that JSON allows, so that a terminal does not act on them.
std::string JsonString(std::string_view text);

/// Builds the members of an object or the elements of an array.
class JsonList {
 public:
  /// A member whose value is JSON already.
  JsonList& Json(std::string_view key, std::string_view json);

  JsonList& Text(std::string_view key, std::string_view text) { return Json(key, JsonString(text)); }
  JsonList& Number(std::string_view key, std::int32_t number) { return Json(key, std::to_string(number)); }
  JsonList& Truth(std::string_view key, bool isTrue) { return Json(key, isTrue ? "true" : "false"); }

  /// An element of an array.
  JsonList& Element(std::string_view json);

  std::string AsObject() const { return "{" + list_ + "}"; }
  std::string AsArray() const { return "[" + list_ + "]"; }

 private:
  std::string list_;
};

}  // namespace vanzet::view
