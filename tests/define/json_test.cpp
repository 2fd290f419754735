#include "define/json.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

namespace vanzet::define {
namespace {

using testing::HasSubstr;

TEST(FormJson, IsRefusedWithTheLineAndTheColumnWhereItEnds) {
  const auto read = ReadJson("{\"spurs\": [\n  1,,\n]}", "job.json");
  ASSERT_FALSE(read);
  EXPECT_THAT(read.fault().Message(), testing::StartsWith("job.json:2:5: not JSON: "));
  EXPECT_EQ(read.fault().source, "  1,,");
  EXPECT_THAT(ReadJson("", "job.json").fault().Message(), HasSubstr("job.json:1:1: not JSON: "));
  EXPECT_FALSE(ReadJson("{\"a\": \"\xff\"}", "job.json"));
  EXPECT_THAT(ReadJson("[1e400]", "job.json").fault().Message(), HasSubstr("too large"));
}

TEST(FormJson, MayHaveAKeyInSeveralObjectsButNotTwiceInOne) {
  EXPECT_TRUE(ReadJson(R"({"a": {"b": 1}, "b": [{"b": 1}, {"b": 1}]})", "job.json"));
  EXPECT_EQ(ReadJson(R"({"a": {"b": 1, "c": {"b": 1}, "b": 2}})", "job.json").fault().Message(),
            "job.json: the key \"b\" occurs twice in one object");
}

TEST(FormJson, OfAnyDepthIsReadOrRefused) {
  EXPECT_FALSE(ReadJson(std::string(100000, '['), "job.json"));
  EXPECT_TRUE(ReadJson(std::string(10000, '[') + std::string(10000, ']'), "job.json"));
}

TEST(FormPaths, QuoteKeysThatAreNoWords) {
  EXPECT_EQ(Below("$.spurs[0]", "main"), "$.spurs[0].main");
  EXPECT_EQ(Below("$", "odd key"), "$[\"odd key\"]");
  EXPECT_EQ(Below("$", ""), "$[\"\"]");
}

TEST(FormNumbers, AreWholeWhereTheyAre) {
  EXPECT_EQ(NumberJson(80).dump(), "80");
  EXPECT_EQ(NumberJson(-22.5).dump(), "-22.5");
}

}  // namespace
}  // namespace vanzet::define
