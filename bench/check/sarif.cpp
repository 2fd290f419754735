#include "check/sarif.h"

#include <array>
#include <string_view>

#include <nlohmann/json.hpp>

namespace vanzet::check {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

constexpr const char* kSchema = "https://json.schemastore.org/sarif-2.1.0.json";

/// The characters of a path that a URI has as they are; any other byte becomes %XX.
constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";

std::string Escaped(std::string_view path) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string uri;
  for (const char c : path) {
    const auto byte = static_cast<unsigned char>(c);
    if (kPlain.find(c) != std::string_view::npos) {
      uri += c;
    } else {
      uri += {'%', kDigits[byte >> 4U], kDigits[byte & 0xFU]};
    }
  }
  return uri;
}

std::string AbsoluteUriOf(const fs::path& file) {
  return "file://" + Escaped(fs::absolute(file).lexically_normal().generic_string());
}

/// SARIF names the levels as the check names its severities.
Json LevelOf(Severity severity) {
  return WordOf(severity);
}

Json JsonOf(const Rule& rule, const Style& style, const fs::path& pages) {
  return {{"id", rule.id},
          {"shortDescription", {{"text", style.texts.Translate(kTextSection, rule.title)}}},
          {"helpUri", AbsoluteUriOf(pages / (std::string(rule.id) + ".md"))},
          {"defaultConfiguration", {{"level", LevelOf(rule.severity)}}}};
}

Json RulesJson(const Style& style, const fs::path& pages) {
  Json rules = Json::array();
  for (const Rule& rule : Rules()) rules.push_back(JsonOf(rule, style, pages));
  return rules;
}

/// "spur 0/main"
std::string LogicalPlaceOf(const Finding& finding) {
  return "spur " + std::to_string(finding.spur) + "/" + std::string(WordOf(finding.where));
}

/// Viewers want a line; the definition, which has none, is in the store.
Json LocationOf(const Finding& finding, const std::string& uri) {
  return {
      {"physicalLocation", {{"artifactLocation", {{"uri", uri}}}, {"region", {{"startLine", 1}}}}},
      {"logicalLocations",
       Json::array({{{"name", WordOf(finding.where)}, {"fullyQualifiedName", LogicalPlaceOf(finding)}}})}};
}

/// The same text for a finding whose values alone have changed.
std::string IdentityOf(const Finding& finding) {
  std::string identity = std::string(finding.rule->id) + "/" + LogicalPlaceOf(finding);
  for (const std::string& body : finding.bodies) identity += "/" + body;
  return identity;
}

Json PropertiesOf(const Finding& finding, const Style& style) {
  Json properties = JsonOfOne(finding, style);
  for (const char* const key : {"rule", "severity", "text"}) properties.erase(key);
  return properties;
}

Json ResultOf(const Finding& finding, const Style& style, const std::string& uri) {
  return {{"ruleId", finding.rule->id},
          {"ruleIndex", finding.rule - Rules().data()},
          {"level", LevelOf(finding.severity)},
          {"message", {{"text", TextOf(finding, style)}}},
          {"locations", Json::array({LocationOf(finding, uri)})},
          {"partialFingerprints", {{"place/v1", IdentityOf(finding)}}},
          {"properties", PropertiesOf(finding, style)}};
}

}  // namespace

std::string UriOf(const fs::path& file) {
  std::error_code unknown;
  const fs::path below = fs::proximate(file, unknown);
  const bool isBelow =
      !unknown && below.is_relative() && below.begin() != below.end() && *below.begin() != "..";
  return isBelow ? Escaped(below.generic_string()) : AbsoluteUriOf(file);
}

Json SarifOf(const std::vector<Finding>& findings, const Style& style, const SarifSource& source) {
  const auto& [file, pages, version, language] = source;
  const std::string uri = UriOf(file);
  Json results = Json::array();
  for (const Finding& finding : findings) results.push_back(ResultOf(finding, style, uri));
  Json driver = {{"name", "vanzet"}, {"version", version}, {"rules", RulesJson(style, pages)}};
  Json run = {{"tool", {{"driver", std::move(driver)}}},
              {"language", language},
              {"invocations", Json::array({{{"executionSuccessful", true}}})},
              {"results", std::move(results)}};
  return {{"$schema", kSchema}, {"version", kSarifVersion}, {"runs", Json::array({std::move(run)})}};
}

}  // namespace vanzet::check
