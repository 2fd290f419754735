#include "define/json.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <set>

#include <nlohmann/json.hpp>

namespace vanzet::define {
namespace {

/// A fault at a byte of a text, which counts from 1.
Fault FaultAt(const std::string& text, std::size_t byte, const std::string& name, std::string reason) {
  const std::size_t at = std::min(byte > 0 ? byte - 1 : 0, text.size());
  const std::string_view before = std::string_view(text).substr(0, at);
  const std::size_t lineStart = before.rfind('\n') == std::string_view::npos ? 0 : before.rfind('\n') + 1;
  Fault fault{std::move(reason), name};
  fault.line = static_cast<int>(std::ranges::count(before, '\n')) + 1;
  fault.column = static_cast<int>(at - lineStart) + 1;
  fault.source = text.substr(lineStart, text.find_first_of("\r\n", lineStart) - lineStart);
  return fault;
}

/// The text of the library's error, without its own name and place.
std::string ReasonOf(const nlohmann::json::parse_error& error) {
  std::string text = error.what();
  const std::size_t place = text.find("column ");
  const std::size_t reason = place == std::string::npos ? text.find("] ") : text.find(": ", place);
  return "not JSON: " + (reason == std::string::npos ? text : text.substr(reason + 2));
}

/// Sees the keys of each object that is open while a text is read.
class Keys {
 public:
  bool See(int depth, Json::parse_event_t event, const Json& parsed) {
    const auto level = static_cast<std::size_t>(depth);
    if (event == Json::parse_event_t::object_start) {
      open_.resize(std::max(open_.size(), level + 2));
      open_[level + 1].clear();
    }
    if (event == Json::parse_event_t::key && !twice_ && !open_[level].insert(std::string(parsed)).second) {
      twice_ = std::string(parsed);
    }
    return true;
  }

  const std::optional<std::string>& twice() const { return twice_; }

 private:
  std::vector<std::set<std::string>> open_;
  std::optional<std::string> twice_;
};

}  // namespace

Result<Json> ReadJson(const std::string& text, const std::string& name) {
  Keys keys;
  try {
    const auto see = [&](int depth, Json::parse_event_t event, Json& parsed) {
      return keys.See(depth, event, parsed);
    };
    constexpr bool kThrows = true, kTakesComments = true;
    Json json = Json::parse(text, see, kThrows, kTakesComments);
    if (keys.twice()) return Fault{"the key " + Quoted(*keys.twice()) + " occurs twice in one object", name};
    return json;
  } catch (const nlohmann::json::parse_error& error) {
    return FaultAt(text, error.byte, name, ReasonOf(error));
  } catch (const nlohmann::json::out_of_range& error) {
    return Fault{"contains a number that is too large", name};
  }
}

std::string Below(const std::string& path, const std::string& key) {
  const bool isPlain = !key.empty() && std::ranges::all_of(key, [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
  });
  return isPlain ? path + "." + key : path + "[" + Quoted(key) + "]";
}

Json NumberJson(double value) {
  constexpr double kExact = 9007199254740992;  // from here on not every whole number is a double
  if (value == std::floor(value) && std::abs(value) < kExact) return static_cast<std::int64_t>(value);
  return value;
}

bool IsEmptyText(const Json& json) {
  return json.is_string() && json.get_ref<const std::string&>().empty();
}

std::string Quoted(const std::string& word) {
  return Json(word).dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string Listed(const std::vector<std::string>& words) {
  std::string list;
  for (const std::string& word : words) list += (list.empty() ? "" : ", ") + word;
  return list;
}

}  // namespace vanzet::define
