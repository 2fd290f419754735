#pragma once

#include <string>
#include <vector>

#include <nlohmann/json_fwd.hpp>

#include "base/result.h"

namespace vanzet::define {

/// JSON whose keys keep their order.
using Json = nlohmann::ordered_json;

/// The version of the form, and its key: a form without one is of version 1.
inline constexpr const char* kVersionKey = "version";
inline constexpr int kFormVersion = 1;

/// The key of the unit of the form's lengths.
inline constexpr const char* kUnitKey = "unit";

/// The key by which editors find the schema of the form; its value is not used.
inline constexpr const char* kSchemaKey = "$schema";

/// A value that is refused: its path, "$.spurs[0].main.chuck.letters.B", and the reason.
struct Refusal {
  std::string path;
  std::string reason;

  bool operator==(const Refusal&) const = default;
};
using Refusals = std::vector<Refusal>;

/// Reads JSON of one value, which may have comments as C++ has them; `name` is the name of the file in
/// faults.
/// Errors   the place where the text is not JSON, with its line; a key that occurs twice in an object, since
///          only one of the two could count
Result<Json> ReadJson(const std::string& text, const std::string& name);

/// The path of the value of a key in the object at `path`.
std::string Below(const std::string& path, const std::string& key);

/// A number as people write it: whole numbers without a point.
Json NumberJson(double value);

/// True for an empty string.
bool IsEmptyText(const Json& json);

/// A key or another word of the form, as a reason quotes it.
std::string Quoted(const std::string& word);

/// "chuck, collet, jaw".
std::string Listed(const std::vector<std::string>& words);

}  // namespace vanzet::define
