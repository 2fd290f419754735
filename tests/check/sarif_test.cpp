#include "check/sarif.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "support/catalogues.h"

namespace vanzet::test {
namespace {

using Json = nlohmann::ordered_json;

/// A property that SARIF 2.1.0 requires of every object at a place, or whose type it fixes.
struct Demand {
  const char* path;  ///< a JSON pointer; "*": each element of a list
  Json::value_t type;
  bool isRequired = true;
};

using enum Json::value_t;
constexpr Demand kDemands[] = {
    {"/version", string},
    {"/$schema", string, false},
    {"/runs", array},
    {"/runs/*/tool", object},
    {"/runs/*/tool/driver", object},
    {"/runs/*/tool/driver/name", string},
    {"/runs/*/tool/driver/version", string, false},
    {"/runs/*/tool/driver/rules", array, false},
    {"/runs/*/tool/driver/rules/*/id", string},
    {"/runs/*/tool/driver/rules/*/shortDescription/text", string},
    {"/runs/*/tool/driver/rules/*/helpUri", string, false},
    {"/runs/*/tool/driver/rules/*/defaultConfiguration/level", string, false},
    {"/runs/*/language", string, false},
    {"/runs/*/invocations/*/executionSuccessful", boolean},
    {"/runs/*/results", array, false},
    {"/runs/*/results/*/message", object},
    {"/runs/*/results/*/message/text", string},
    {"/runs/*/results/*/ruleIndex", number_unsigned, false},
    {"/runs/*/results/*/locations/*/physicalLocation/artifactLocation/uri", string},
    {"/runs/*/results/*/locations/*/physicalLocation/region/startLine", number_unsigned},
    {"/runs/*/results/*/locations/*/logicalLocations/*/name", string, false},
    {"/runs/*/results/*/properties", object, false},
};

bool IsOfType(const Json& json, Json::value_t type) {
  return json.type() == type || (type == number_unsigned && json.is_number_integer() && json >= 0);
}

/// The places of a log that break a demand.
void Examine(const Json& json, std::string_view path, const Demand& demand,
             std::vector<std::string>& broken) {
  if (path.empty()) {
    if (!IsOfType(json, demand.type)) broken.push_back(std::string(demand.path) + ": type");
    return;
  }
  const std::string step(path.substr(1, path.find('/', 1) - 1));
  const std::string_view rest = path.substr(step.size() + 1);
  if (step == "*") {
    for (const Json& each : json) Examine(each, rest, demand, broken);
  } else if (json.contains(step)) {
    Examine(json[step], rest, demand, broken);
  } else if (demand.isRequired) {
    broken.push_back(std::string(demand.path) + ": missing " + step);
  }
}

std::vector<std::string> BrokenIn(const Json& log) {
  std::vector<std::string> broken;
  for (const Demand& demand : kDemands) Examine(log, demand.path, demand, broken);
  return broken;
}

check::Finding Overlap() {
  return {.rule = check::FindRule("EQ-201"),
          .severity = check::Severity::kError,
          .spur = 1,
          .where = check::Where::kSub,
          .sentence = {"The jaw cuts %1 into the billet.", {check::Length{1.25}}},
          .values = {{"overlap", 1.25}},
          .at = geometry::Point(-12, 21),
          .bodies = {"sub jaw 1", "sub billet"}};
}

Json Log(const std::vector<check::Finding>& findings, const Translations& texts = Translations()) {
  return check::SarifOf(findings, {texts, LengthUnit::kInch}, {"/lathe/bench.ini", "/pages", "2.0", "en"});
}

TEST(Sarif, HasWhatTheStandardRequires) {
  check::Finding bare = Overlap();
  bare.at.reset();
  bare.bodies.clear();
  const Json log = Log({Overlap(), bare});
  EXPECT_THAT(BrokenIn(log), testing::IsEmpty());
  EXPECT_EQ(log["version"], "2.1.0");
  EXPECT_THAT(BrokenIn(Log({})), testing::IsEmpty());
  Json spoilt = log;
  spoilt["runs"][0]["results"][1].erase("message");
  EXPECT_FALSE(BrokenIn(spoilt).empty()) << "the test itself sees what is missing";
}

TEST(Sarif, HasEveryRuleWithItsPage) {
  const Json log = Log({Overlap()}, Catalogues().at("de"));
  const Json& rules = log["runs"][0]["tool"]["driver"]["rules"];
  ASSERT_EQ(rules.size(), check::Rules().size());
  const Json& rule = rules[log["runs"][0]["results"][0]["ruleIndex"].get<std::size_t>()];
  EXPECT_EQ(rule["id"], "EQ-201");
  EXPECT_EQ(rule["helpUri"], "file:///pages/EQ-201.md");
  EXPECT_EQ(rule["defaultConfiguration"]["level"], "error");
  EXPECT_EQ(rule["shortDescription"]["text"], "Eine Backe schneidet in das Rohteil");
}

TEST(Sarif, HasTheFindingInMillimetres) {
  const Json result = Log({Overlap()})["runs"][0]["results"][0];
  EXPECT_EQ(result["ruleId"], "EQ-201");
  EXPECT_EQ(result["level"], "error");
  EXPECT_EQ(result["message"]["text"], "The jaw cuts 0.0492 inch into the billet.");
  EXPECT_EQ(result["locations"][0]["logicalLocations"][0]["fullyQualifiedName"], "spur 1/sub");
  EXPECT_EQ(result["properties"]["values"]["overlap"], 1.25);
  EXPECT_EQ(result["properties"]["at"]["r"], 21);
  EXPECT_EQ(result["properties"]["bodies"][1], "sub billet");
}

TEST(Sarif, KnowsAFindingAgainWhenItsValuesChange) {
  check::Finding deeper = Overlap();
  deeper.values.front().number = 2;
  check::Finding elsewhere = Overlap();
  elsewhere.spur = 0;
  const Json log = Log({Overlap(), deeper, elsewhere});
  const Json& results = log["runs"][0]["results"];
  EXPECT_EQ(results[0]["partialFingerprints"], results[1]["partialFingerprints"]);
  EXPECT_NE(results[0]["partialFingerprints"], results[2]["partialFingerprints"]);
}

TEST(Sarif, EscapesFileNames) {
  const auto here = std::filesystem::current_path();
  EXPECT_EQ(check::UriOf(here / "a lathe" / "50%.ini"), "a%20lathe/50%25.ini");
  EXPECT_EQ(check::UriOf("/Drehmaschine Süd"), "file:///Drehmaschine%20S%C3%BCd");
}

}  // namespace
}  // namespace vanzet::test
