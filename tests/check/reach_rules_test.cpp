#include "check/report.h"
#include "setup_fixture.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Reach : public SetupTest {};
INSTANTIATE_TEST_SUITE_P(Spindles, Reach, testing::Bool(), SpindleName);

using SubReach = SetupTest;

TEST_P(Reach, OfAClampedLengthUnderAThird) {
  // 100 mm of billet with 14 of them in the jaws, and with 13.
  Spoilt().clampingOut = 86;
  EXPECT_THAT(Rules(), IsEmpty());
  Spoilt().clampingOut = 87;
  ASSERT_THAT(Rules(), ElementsAre("EQ-302 " + Place()));
  const check::Finding finding = Found().front();
  EXPECT_NEAR(ValueOf(finding, "length"), 13, 1e-9);
  ASSERT_TRUE(finding.change);
  EXPECT_NEAR(finding.change->to, 86, 1e-9);
  Spoilt().clampingOut = finding.change->to;
  EXPECT_THAT(Rules(), IsEmpty());
}

TEST_P(Reach, OfAnOverhangWithoutACenter) {
  Spoilt().billet.partLength = 300;
  Spoilt().clampingOut = 123.9;
  EXPECT_THAT(Rules(), IsEmpty());
  Spoilt().clampingOut = 124.1;
  ASSERT_THAT(Rules(), ElementsAre("EQ-303 " + Place()));
  EXPECT_NEAR(ValueOf(Found().front(), "overhang"), 126.1, 1e-9);
  EXPECT_NEAR(ValueOf(Found().front(), "times"), 126.1 / 42, 1e-9);
  // The bar is within the bore, and can go further back.
  ASSERT_TRUE(Found().front().change);
  Spoilt().clampingOut = Found().front().change->to;
  EXPECT_THAT(Rules(), IsEmpty());
}

TEST_P(Reach, OfAnOverhangWithoutASteadyRest) {
  equipment.spindles[0].clampingOut = 333.9;
  equipment.spindles[0].billet.partLength = 500;
  equipment.spindles[1] = {};
  equipment.center = {"Center", kCenter};
  EXPECT_THAT(Rules(), IsEmpty());
  equipment.spindles[0].clampingOut = 334.1;
  EXPECT_THAT(Rules(), ElementsAre("EQ-303 main"));
  equipment.usesSteadyRest = true;
  EXPECT_THAT(Rules(), IsEmpty());
}

TEST_F(SubReach, OfAnOverhangThatNoSteadyRestSupports) {
  // Steady rest and center are on the main side.
  equipment.spindles[1].billet.partLength = 500;
  equipment.usesSteadyRest = true;
  const auto sentence = [&](double clampingOut) -> std::string_view {
    equipment.spindles[1].clampingOut = clampingOut;
    for (const check::Finding& finding : Found()) {
      if (RuleAndPlace(finding) == "EQ-303 sub") return finding.sentence.english;
    }
    return {};
  };
  EXPECT_THAT(std::string(sentence(333.9)), testing::EndsWith("without a center."));
  EXPECT_THAT(std::string(sentence(334.1)), testing::EndsWith("without a steady rest."));
}

TEST_P(Reach, OfADatumOutsideOfTheBillet) {
  figures.emplace("behind", Rectangle(-100, 0, -1, 21));
  UseFigure("behind", 100);
  Spoilt().billet.clampDiameter = 42;
  ASSERT_THAT(Rules(), ElementsAre("EQ-304 datum"));
  figures.at("behind") = Rectangle(-100, 0, 0, 21);
  EXPECT_THAT(Rules(), IsEmpty());
}

TEST_P(Reach, OfAnAllowanceThatTakesTheDatumAway) {
  Spoilt().billet.frontAllowance = -1;
  ASSERT_THAT(Rules(), ElementsAre("EQ-304 datum"));
  const auto change = Found().front().change;
  ASSERT_TRUE(change);
  EXPECT_EQ(change->from, -1);
  Spoilt().billet.frontAllowance = change->to;
  EXPECT_THAT(Rules(), IsEmpty());
}

TEST_P(Reach, OfAClampingOutBeyondTheBillet) {
  for (const double out : {101.0, 110.0}) {
    Spoilt().clampingOut = out;
    ASSERT_THAT(Rules(), ElementsAre("EQ-302 " + Place(), "EQ-304 datum"));
    for (const check::Finding& finding : Found()) {
      ASSERT_TRUE(finding.change);
      EXPECT_EQ(finding.change->from, out);
      Spoilt().clampingOut = finding.change->to;
      EXPECT_THAT(Rules(), IsEmpty());
      Spoilt().clampingOut = out;
    }
  }
}

TEST_P(Reach, OfAClampingOutThatTakesTheBilletOffAFaceDriver) {
  Spoilt().jaw = {};
  Spoilt().clamp = {"Face driver", kFaceDriver};
  Spoilt().clampingOut = 100;
  EXPECT_THAT(Rules(), testing::Not(testing::Contains("EQ-304 datum")));
  Spoilt().clampingOut = 100.1;
  ASSERT_THAT(Rules(), testing::Contains("EQ-304 datum"));
  for (const check::Finding& finding : Found()) {
    if (finding.rule->id != "EQ-304") continue;
    ASSERT_TRUE(finding.change);
    EXPECT_NEAR(finding.change->to, 100, 1e-9);
  }
}

class MakerRules : public SetupTest {
 protected:
  void Figures(const std::string& json) {
    auto read = catalogue::MakerData::Read(R"({"version":1,"devices":{"Chuck 160":)" + json + "}}", "maker");
    ASSERT_TRUE(read) << read.fault().text;
    shop.maker = *std::move(read);
  }

  std::vector<check::Finding> FindingsOf(std::string_view rule) const {
    std::vector<check::Finding> found = Found();
    std::erase_if(found, [&](const check::Finding& finding) { return finding.rule->id != rule; });
    return found;
  }

  /// The value that mends a finding, as it is printed after the sentence.
  std::string MendOf(check::Finding finding) const {
    const std::string whole = check::TextOf(finding, {translations});
    finding.change.reset();
    return whole.substr(check::TextOf(finding, {translations}).size());
  }
  Translations translations;
};
INSTANTIATE_TEST_SUITE_P(Spindles, MakerRules, testing::Bool(), SpindleName);

TEST_P(MakerRules, OfABarThatIsTooLong) {
  Figures(R"({"max_bar_length": 1000})");
  Spoilt().billet.barLength = 1000;
  EXPECT_THAT(Rules(), IsEmpty());
  Spoilt().billet.barLength = 1001;
  ASSERT_THAT(Rules(), ElementsAre("EQ-305 " + Place()));
  EXPECT_EQ(ValueOf(Found().front(), "most"), 1000);
  ASSERT_TRUE(Found().front().change);
  Spoilt().billet.barLength = Found().front().change->to;
  EXPECT_THAT(Rules(), IsEmpty());
}

TEST_P(MakerRules, OfAClampDiameterOutOfItsRange) {
  Figures(R"({"clamp_outside": [20, 42], "clamp_inside": [60, 140]})");
  EXPECT_THAT(Rules(), IsEmpty());
  Figures(R"({"clamp_outside": [42.5, 160], "clamp_inside": [20, 140]})");
  equipment.spindles[GetParam() ? 0 : 1].clamp.name = "another";
  ASSERT_THAT(Rules(), ElementsAre("EQ-401 " + Place()));
  EXPECT_EQ(ValueOf(Found().front(), "diameter"), 42);
}

TEST_P(MakerRules, OfTheRangeInsideWhereJawsClampInside) {
  Figures(R"({"clamp_outside": [1, 400], "clamp_inside": [61, 140]})");
  equipment.spindles[GetParam() ? 0 : 1].clamp.name = "another";
  Spoilt().clampsInside = true;
  Spoilt().billet.innerDiameter = 60;
  Spoilt().billet.outerDiameter = Spoilt().billet.clampDiameter = 90;
  EXPECT_THAT(Rules(), ElementsAre("EQ-401 " + Place()));
  Spoilt().billet.innerDiameter = 61;
  EXPECT_THAT(Rules(), IsEmpty());
}

TEST_P(MakerRules, OfSpeedForceAndMass) {
  equipment.spindles[GetParam() ? 0 : 1] = {};
  Figures(R"({"max_speed": 4500, "max_force": 60, "max_mass": 1.12})");
  EXPECT_THAT(Rules(), testing::Not(testing::Contains(testing::HasSubstr("EQ-402"))));
  job.speed = 4500;
  job.force = 60;
  EXPECT_THAT(Rules(), testing::Not(testing::Contains(testing::HasSubstr("EQ-402"))));
  job.speed = 4501;
  job.force = 61;
  job.density = 8;  // 102 mm of 42 mm are 0.1413 dm3
  std::vector<double> values;
  std::vector<std::string> changes;
  for (const check::Finding& finding : FindingsOf("EQ-402")) {
    values.push_back(ValueOf(finding, "value"));
    changes.push_back(MendOf(finding));
  }
  EXPECT_THAT(values, ElementsAre(4501, 61, testing::DoubleNear(1.1305, 1e-3)));
  EXPECT_THAT(changes, ElementsAre(" Change the job's speed from 4501 1/min to 4500 1/min.",
                                   " Change the job's force from 61 kN to 60 kN.", ""));
}

TEST_P(MakerRules, SayTheBarThatIsNotTooHeavy) {
  equipment.spindles[GetParam() ? 0 : 1] = {};
  Figures(R"({"max_mass": 5})");
  Spoilt().billet.barLength = 500;
  const auto mass = [&] { return FindingsOf("EQ-402"); };
  ASSERT_EQ(mass().size(), 1U);
  ASSERT_TRUE(mass().front().change);
  EXPECT_EQ(mass().front().change->from, 500);
  // 42 mm of steel weigh 10.876 kg a metre.
  EXPECT_EQ(mass().front().change->to, 459);
  Spoilt().billet.barLength = 459;
  EXPECT_THAT(mass(), IsEmpty());
  Spoilt().billet.barLength = 460;
  EXPECT_EQ(mass().size(), 1U);
  // No bar of the part's length is light enough.
  Figures(R"({"max_mass": 1})");
  ASSERT_EQ(mass().size(), 1U);
  EXPECT_FALSE(mass().front().change);
}

}  // namespace
}  // namespace vanzet::test
