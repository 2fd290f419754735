#include "define/outcome.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

namespace vanzet::define {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::vector<Step> kSteps = {{"$.a", {"select 3", "press 2154"}}, {"$.b", {"context 18 51000"}}};

constexpr const char* kSelected = "{\"event\":\"focus\",\"control\":2158,\"select_all\":false}\n";

TEST(Transcript, WithoutBoxesAndErrorsRefusesNothing) {
  EXPECT_THAT(
      RefusedBy(std::string(kSelected) + "{\"event\":\"closed\",\"by\":\"ok\"}\n", kSteps, ScriptOf(kSteps)),
      IsEmpty());
}

TEST(Transcript, TellsOfABoxWhoseStepItWas) {
  const std::string box = "{\"event\":\"box\",\"caption\":\"\",\"text\":\"no\",\"type\":0,\"answer\":1}\n";
  EXPECT_THAT(RefusedBy(box + kSelected + box + "{\"event\":\"focus\",\"control\":2027}\n" + kSelected + box,
                        kSteps, ScriptOf(kSteps)),
              ElementsAre(Refusal{"$.a", "the dialog says \"no\""}, Refusal{"$.b", "the dialog says \"no\""}))
      << "the first came while the dialog started, and is not about the form";
}

TEST(Transcript, TellsOfAnErrorWhoseLineItWas) {
  const auto error = [](int line) {
    return "{\"event\":\"error\",\"line\":" + std::to_string(line) + ",\"text\":\"no\"}\n";
  };
  EXPECT_THAT(RefusedBy(error(3) + error(5) + error(0) + error(99), kSteps, ScriptOf(kSteps)),
              ElementsAre(Refusal{"$.a", "the dialog says: no"}, Refusal{"$.b", "the dialog says: no"},
                          Refusal{"$", "the dialog says: no"}, Refusal{"$", "the dialog says: no"}));
}

TEST(Differences, AreThoseOfWhatWasAskedFor) {
  const Json asked = Json::parse(R"({"a": [{"b": 1, "c": "x", "d": true}], "e": 0, "f": {"g": false}})");
  EXPECT_THAT(Differences(asked, Json::parse(R"({"a": [{"b": 1.0, "c": "x", "d": true, "more": 1}]})")),
              IsEmpty());
  EXPECT_THAT(Differences(asked, Json::parse(R"({"a": [{"b": 2, "c": "y"}], "e": 1})")),
              ElementsAre(Refusal{"$.a[0].b", "the definition has 2 instead of 1"},
                          Refusal{"$.a[0].c", "the definition has \"y\" instead of \"x\""},
                          Refusal{"$.a[0].d", "the definition has nothing instead of true"},
                          Refusal{"$.e", "the definition has 1 instead of 0"}));
}

TEST(Differences, PassOverWhatSixDecimalsCannotTell) {
  EXPECT_THAT(Differences(1.0000004, 1.0), IsEmpty());
  EXPECT_THAT(Differences(123456789.1234567, 123456789.123457), IsEmpty());
  EXPECT_EQ(Differences(1.000001, 1.0).size(), 1U);
}

}  // namespace
}  // namespace vanzet::define
