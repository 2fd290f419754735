#include "setup_fixture.h"

namespace vanzet::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class DeviceRules : public SetupTest {
 protected:
  std::string SentenceOf(std::string_view rule) const {
    for (const check::Finding& finding : Findings()) {
      if (finding.rule->id == rule) return finding.sentence.english;
    }
    return {};
  }
};
INSTANTIATE_TEST_SUITE_P(Spindles, DeviceRules, testing::Bool(), SpindleName);

TEST_P(DeviceRules, FindABilletThatNothingHolds) {
  Spoilt().jaw = {};
  ASSERT_THAT(Rules(), ElementsAre("EQ-101 " + Place()));
  EXPECT_EQ(SentenceOf("EQ-101"), "The spindle has a billet, but its chuck has no jaws.");
  Spoilt().clamp = {};
  ASSERT_THAT(Rules(), ElementsAre("EQ-101 " + Place()));
  EXPECT_EQ(SentenceOf("EQ-101"), "The spindle has a billet, but no device that holds it.");
  Spoilt().billet = {};
  EXPECT_THAT(Rules(), IsEmpty());
}

TEST_P(DeviceRules, FindValuesWithoutAnOutline) {
  Spoilt().clamp.params.C = 81;
  EXPECT_THAT(Rules(), Contains("EQ-102 " + Place()));
  Spoilt().clamp.params.C = 79;
  EXPECT_THAT(Rules(), testing::Not(Contains("EQ-102 " + Place())));
}

TEST_P(DeviceRules, FindADifferenceToTheCatalogue) {
  shop.catalogue = catalogue::Catalogue::Read("Chuck 160\n1 80 90 22.5 0 0 0 0 0 0 0\n");
  EXPECT_THAT(Rules(), IsEmpty());
  Spoilt().clamp.params.A = 80.5;
  ASSERT_THAT(Rules(), ElementsAre("EQ-103 " + Place()));
  EXPECT_EQ(Found().front().severity, check::Severity::kNote);
  EXPECT_EQ(std::get<std::string>(Found().front().sentence.terms.at(1)), "A");
  // A device of another kind may have the name.
  shop.catalogue = catalogue::Catalogue::Read("Chuck 160\n2 33 94 12 21 38 2.5 0 0 0 0\n");
  EXPECT_THAT(Rules(), IsEmpty());
}

TEST_P(DeviceRules, FindABodyThatCannotBeMade) {
  UseSolid("nowhere", 100, 42);
  EXPECT_THAT(Rules(), ElementsAre("EQ-104 " + Place()));
}

TEST_P(DeviceRules, FindOlderDefinitionsAndMissingSimulationData) {
  EXPECT_EQ(SentenceOf("EQ-105"), "The definition has no simulation data of the device %1.");
  definition.version = 99;
  EXPECT_EQ(SentenceOf("EQ-105"), "The definition has version %1, which is older than %2.");
}

TEST_P(DeviceRules, HaveTheSeverityOfTheProject) {
  Spoilt().jaw = {};
  severities["EQ-101"] = check::Severity::kError;
  EXPECT_EQ(Found().front().severity, check::Severity::kError);
  severities["EQ-101"] = std::nullopt;
  EXPECT_THAT(Rules(), IsEmpty());
}

}  // namespace
}  // namespace vanzet::test
