#include "define/schema_check.h"

#include <gtest/gtest.h>

#include <algorithm>
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

 private:
  using Check = std::function<std::string(const SchemaCheck&, const Json& schema, const Json& argument,
                                          const Json& value, const std::string& path)>;
  static const std::map<std::string, Check> kChecks;

  bool Takes(const Json& schema, const Json& value) const { return Refusal(schema, value, "").empty(); }

  auto Matches(const Json& value) const {
    return [this, &value](const Json& schema) { return Takes(schema, value); };
  }

  static bool IsOfType(const std::string& type, const Json& value) {
    if (type == "integer") return value.is_number() && value.get<double>() == std::floor(value.get<double>());
    if (type == "number") return value.is_number();
    return type == (value.is_object()    ? "object"
                    : value.is_array()   ? "array"
                    : value.is_string()  ? "string"
                    : value.is_boolean() ? "boolean"
                                         : "");
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

/// A check of a keyword that says yes or no.
template <class IsMet>
auto Plain(const char* keyword, IsMet isMet) {
  return [keyword, isMet](const SchemaCheck&, const Json&, const Json& argument, const Json& value,
                          const std::string&) { return std::string(isMet(argument, value) ? "" : keyword); };
}

constexpr auto kNothing = [](const SchemaCheck&, const Json&, const Json&, const Json&, const std::string&) {
  return std::string();
};

const std::map<std::string, SchemaCheck::Check> SchemaCheck::kChecks = {
    {"$schema", kNothing}, {"$id", kNothing}, {"$defs", kNothing}, {"title", kNothing}, {"description", kNothing},
    {"default", kNothing}, {"then", kNothing}, {"else", kNothing},
    {"type", Plain("type", [](const Json& type, const Json& value) { return IsOfType(type, value); })},
    {"const", Plain("const", [](const Json& only, const Json& value) { return value == only; })},
    {"enum", Plain("enum", [](const Json& all, const Json& value) { return std::ranges::count(all, value) > 0; })},
    {"minimum", Plain("minimum", [](const Json& least, const Json& value) { return !value.is_number() || value >= least; })},
    {"exclusiveMinimum", Plain("exclusiveMinimum", [](const Json& least, const Json& value) { return !value.is_number() || value > least; })},
    {"maximum", Plain("maximum", [](const Json& most, const Json& value) { return !value.is_number() || value <= most; })},
    {"minLength", Plain("minLength", [](const Json& least, const Json& value) { return !value.is_string() || value.get<std::string>().size() >= least; })},
    {"maxLength", Plain("maxLength", [](const Json& most, const Json& value) { return !value.is_string() || value.get<std::string>().size() <= most; })},
    {"pattern", Plain("pattern", [](const Json& pattern, const Json& value) {
       return !value.is_string() || std::regex_search(value.get<std::string>(), std::regex(pattern.get<std::string>()));
     })},
    {"minItems", Plain("minItems", [](const Json& least, const Json& value) { return !value.is_array() || value.size() >= least; })},
    {"required", Plain("required", [](const Json& keys, const Json& value) {
       return !value.is_object() || std::ranges::all_of(keys, [&](const Json& key) { return value.contains(key.get<std::string>()); });
     })},
    {"$ref", [](const SchemaCheck& check, const Json&, const Json& argument, const Json& value, const std::string& path) {
       return check.Refusal(check.root_.at(Json::json_pointer(argument.get<std::string>().substr(1))), value, path);
     }},
    {"properties", [](const SchemaCheck& check, const Json&, const Json& argument, const Json& value, const std::string& path) { return check.Properties(argument, value, path); }},
    {"additionalProperties", [](const SchemaCheck& check, const Json& schema, const Json& argument, const Json& value, const std::string& path) { return check.Others(schema, argument, value, path); }},
    {"items", [](const SchemaCheck& check, const Json&, const Json& argument, const Json& value, const std::string& path) { return check.Items(argument, value, path); }},
    {"allOf", [](const SchemaCheck& check, const Json&, const Json& argument, const Json& value, const std::string& path) { return check.All(argument, value, path); }},
    {"anyOf", [](const SchemaCheck& check, const Json&, const Json& argument, const Json& value, const std::string&) {
       return std::string(std::ranges::any_of(argument, check.Matches(value)) ? "" : "anyOf");
     }},
    {"oneOf", [](const SchemaCheck& check, const Json&, const Json& argument, const Json& value, const std::string&) {
       return std::string(std::ranges::count_if(argument, check.Matches(value)) == 1 ? "" : "oneOf");
     }},
    {"not", [](const SchemaCheck& check, const Json&, const Json& argument, const Json& value, const std::string&) {
       return std::string(check.Takes(argument, value) ? "not" : "");
     }},
    {"if", [](const SchemaCheck& check, const Json& schema, const Json&, const Json& value, const std::string& path) { return check.Condition(schema, value, path); }},
    {"dependentSchemas", [](const SchemaCheck& check, const Json&, const Json& argument, const Json& value, const std::string& path) { return check.Dependents(argument, value, path); }},
};

}  // namespace

std::string RefusedBySchema(const Json& schema, const Json& value) {
  return SchemaCheck(schema).Refusal(schema, value, "$");
}

}  // namespace vanzet::test
