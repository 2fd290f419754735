#include "define/schema_check.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <regex>

namespace vanzet::test {
namespace {

using Json = nlohmann::ordered_json;

class SchemaCheck {
 public:
  explicit SchemaCheck(const Json& root) : root_(root) {}

  /// The refusal of the value at `path`, or nothing.
  std::string Refusal(const Json& schema, const Json& value, const std::string& path) const {
    if (schema.is_boolean()) return schema.get<bool>() ? "" : path + ": false";
    for (const auto& [keyword, argument] : schema.items()) {
      const auto check = kChecks.find(keyword);
      if (check == kChecks.end()) {
        ADD_FAILURE() << "the keyword " << keyword << " is not checked";
      } else if (std::string refusal = check->second(*this, schema, argument, value, path);
                 !refusal.empty()) {
        return refusal == keyword ? path + ": " + keyword : refusal;
      }
    }
    return "";
  }

  using Check = std::function<std::string(const SchemaCheck&, const Json& schema, const Json& argument,
                                          const Json& value, const std::string& path)>;

 private:
  static const std::map<std::string, Check> kChecks;

  bool Takes(const Json& schema, const Json& value) const { return Refusal(schema, value, "").empty(); }

  auto Matches(const Json& value) const {
    return [this, &value](const Json& schema) { return Takes(schema, value); };
  }

  std::string Reference(const Json& name, const Json& value, const std::string& path) const {
    const Json::json_pointer place(name.get<std::string>().substr(1));
    return Refusal(root_.at(place), value, path);
  }

  std::string Any(const Json& schemas, const Json& value, const std::string& path) const {
    return std::ranges::any_of(schemas, Matches(value)) ? "" : path + ": anyOf";
  }

  std::string One(const Json& schemas, const Json& value, const std::string& path) const {
    return std::ranges::count_if(schemas, Matches(value)) == 1 ? "" : path + ": oneOf";
  }

  std::string None(const Json& schema, const Json& value, const std::string& path) const {
    return Takes(schema, value) ? path + ": not" : "";
  }

  std::string Properties(const Json& properties, const Json& value, const std::string& path) const {
    for (const auto& [key, schema] : properties.items()) {
      if (!value.is_object() || !value.contains(key)) continue;
      if (std::string refusal = Refusal(schema, value[key], path + "." + key); !refusal.empty())
        return refusal;
    }
    return "";
  }

  std::string Others(const Json& schema, const Json& argument, const Json& value,
                     const std::string& path) const {
    if (!value.is_object()) return "";
    for (const auto& [key, each] : value.items()) {
      if (schema.contains("properties") && schema["properties"].contains(key)) continue;
      if (std::string refusal = Refusal(argument, each, path + "." + key); !refusal.empty()) return refusal;
    }
    return "";
  }

  std::string Items(const Json& schema, const Json& value, const std::string& path) const {
    for (std::size_t i = 0; value.is_array() && i < value.size(); ++i) {
      std::string refusal = Refusal(schema, value[i], path + "[" + std::to_string(i) + "]");
      if (!refusal.empty()) return refusal;
    }
    return "";
  }

  std::string All(const Json& schemas, const Json& value, const std::string& path) const {
    for (const Json& schema : schemas) {
      if (std::string refusal = Refusal(schema, value, path); !refusal.empty()) return refusal;
    }
    return "";
  }

  std::string Condition(const Json& schema, const Json& value, const std::string& path) const {
    const char* const branch = Takes(schema["if"], value) ? "then" : "else";
    return schema.contains(branch) ? Refusal(schema[branch], value, path) : "";
  }

  std::string Dependents(const Json& schemas, const Json& value, const std::string& path) const {
    for (const auto& [key, schema] : schemas.items()) {
      if (!value.is_object() || !value.contains(key)) continue;
      if (std::string refusal = Refusal(schema, value, path); !refusal.empty()) return refusal;
    }
    return "";
  }

  const Json& root_;
};

/// A keyword that takes or refuses a value as a whole.
using IsMet = bool (*)(const Json& argument, const Json& value);

SchemaCheck::Check Plain(const char* keyword, IsMet isMet) {
  return [=](const SchemaCheck&, const Json&, const Json& argument, const Json& value, const std::string&) {
    return std::string(isMet(argument, value) ? "" : keyword);
  };
}

/// A keyword that is checked by a member function.
template <class Member>
SchemaCheck::Check Deep(Member member) {
  return [=](const SchemaCheck& check, const Json&, const Json& argument, const Json& value,
             const std::string& path) { return (check.*member)(argument, value, path); };
}

bool SaysNothing(const Json& /*argument*/, const Json& /*value*/) {
  return true;
}

bool IsOfType(const Json& type, const Json& value) {
  if (type == "integer") return value.is_number() && value.get<double>() == std::floor(value.get<double>());
  if (type == "number") return value.is_number();
  if (type == "string") return value.is_string();
  if (type == "boolean") return value.is_boolean();
  return type == "array" ? value.is_array() : type == "object" && value.is_object();
}

bool IsThat(const Json& only, const Json& value) {
  return value == only;
}

bool IsOneOf(const Json& all, const Json& value) {
  return std::ranges::count(all, value) > 0;
}

bool IsAtLeast(const Json& least, const Json& value) {
  return !value.is_number() || value >= least;
}

bool IsAbove(const Json& least, const Json& value) {
  return !value.is_number() || value > least;
}

bool IsAtMost(const Json& most, const Json& value) {
  return !value.is_number() || value <= most;
}

bool HasLeastLength(const Json& least, const Json& value) {
  return !value.is_string() || value.get_ref<const std::string&>().size() >= least;
}

bool HasMostLength(const Json& most, const Json& value) {
  return !value.is_string() || value.get_ref<const std::string&>().size() <= most;
}

bool Fits(const Json& pattern, const Json& value) {
  return !value.is_string() ||
         std::regex_search(value.get<std::string>(), std::regex(pattern.get<std::string>()));
}

bool HasLeastItems(const Json& least, const Json& value) {
  return !value.is_array() || value.size() >= least;
}

bool HasKeys(const Json& keys, const Json& value) {
  const auto isThere = [&](const Json& key) { return value.contains(key.get<std::string>()); };
  return !value.is_object() || std::ranges::all_of(keys, isThere);
}

const std::map<std::string, SchemaCheck::Check> SchemaCheck::kChecks = {
    {"$schema", Plain("$schema", SaysNothing)},
    {"$id", Plain("$id", SaysNothing)},
    {"$defs", Plain("$defs", SaysNothing)},
    {"title", Plain("title", SaysNothing)},
    {"description", Plain("description", SaysNothing)},
    {"default", Plain("default", SaysNothing)},
    {"then", Plain("then", SaysNothing)},
    {"else", Plain("else", SaysNothing)},
    {"type", Plain("type", IsOfType)},
    {"const", Plain("const", IsThat)},
    {"enum", Plain("enum", IsOneOf)},
    {"minimum", Plain("minimum", IsAtLeast)},
    {"exclusiveMinimum", Plain("exclusiveMinimum", IsAbove)},
    {"maximum", Plain("maximum", IsAtMost)},
    {"minLength", Plain("minLength", HasLeastLength)},
    {"maxLength", Plain("maxLength", HasMostLength)},
    {"pattern", Plain("pattern", Fits)},
    {"minItems", Plain("minItems", HasLeastItems)},
    {"required", Plain("required", HasKeys)},
    {"$ref", Deep(&SchemaCheck::Reference)},
    {"properties", Deep(&SchemaCheck::Properties)},
    {"items", Deep(&SchemaCheck::Items)},
    {"allOf", Deep(&SchemaCheck::All)},
    {"anyOf", Deep(&SchemaCheck::Any)},
    {"oneOf", Deep(&SchemaCheck::One)},
    {"not", Deep(&SchemaCheck::None)},
    {"dependentSchemas", Deep(&SchemaCheck::Dependents)},
    {"additionalProperties",
     [](const SchemaCheck& check, const Json& schema, const Json& argument, const Json& value,
        const std::string& path) { return check.Others(schema, argument, value, path); }},
    {"if", [](const SchemaCheck& check, const Json& schema, const Json&, const Json& value,
              const std::string& path) { return check.Condition(schema, value, path); }},
};

}  // namespace

std::string RefusedBySchema(const Json& schema, const Json& value) {
  return SchemaCheck(schema).Refusal(schema, value, "$");
}

}  // namespace vanzet::test
