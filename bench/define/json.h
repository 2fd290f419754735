#pragma once

#include <string>
#include <vector>

#include <nlohmann/json_fwd.hpp>

#include "base/result.h"

namespace vanzet::define {

/// Keys keep the order in which a person wrote them.
using Json = nlohmann::ordered_json;

/// A value that is refused: where it stands, "$.spurs[0].main.chuck.letters.B", and why.
struct Refusal {
  std::string path;
  std::string reason;

  bool operator==(const Refusal&) const = default;
};
using Refusals = std::vector<Refusal>;

/// Reads JSON of one value. A fault names the file as `name`, and the line and column where the text is no
/// JSON; a key that stands twice in an object is one too, since only one of the two could count.
Result<Json> ReadJson(const std::string& text, const std::string& name);

/// The path of what stands in `path` under the key.
std::string Below(const std::string& path, const std::string& key);

/// A number as people write it: whole numbers without a point.
Json NumberJson(double value);

/// True for a text without characters.
bool IsEmptyText(const Json& json);

/// A key or another word of the form, as a reason quotes it.
std::string Quoted(const std::string& word);

/// "chuck, collet, jaw".
std::string Listed(const std::vector<std::string>& words);

/// Those of `words` that somebody may have meant by `word`: of near spelling, or one part of the other.
std::vector<std::string> NearWords(const std::string& word, const std::vector<std::string>& words);

}  // namespace vanzet::define
