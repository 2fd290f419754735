#include "check/report.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "support/catalogues.h"

namespace vanzet::test {
namespace {

check::Finding Overlap() {
  return {.rule = check::FindRule("EQ-201"),
          .severity = check::Severity::kError,
          .spur = 1,
          .where = check::Where::kSub,
          .sentence = {"The jaw cuts %1 into the billet.", {check::Length{1.25}}},
          .values = {{"overlap", 1.25}},
          .at = geometry::Point(-12, 21),
          .bodies = {"sub jaw 1", "sub billet"},
          .change = check::Change{"the clamp diameter", 42, 44.5}};
}

TEST(Report, HasALineForEachFinding) {
  EXPECT_EQ(check::PageOf({Overlap()}, {Translations()}),
            "spur 1, sub spindle: error EQ-201: The jaw cuts 1.25 mm into the billet. Change the clamp "
            "diameter from "
            "42 mm to 44.5 mm.\nErrors: 1, warnings: 0, notes: 0\n");
  EXPECT_EQ(check::PageOf({}, {Translations()}), "Nothing was found.\n");
}

TEST(Report, SpeaksGermanAndInches) {
  EXPECT_EQ(
      check::PageOf({Overlap()}, {Catalogues().at("de"), LengthUnit::kInch}),
      "Spur 1, Gegenspindel: Fehler EQ-201: Die Backe schneidet 0.0492 inch in das Rohteil. Ändern Sie den "
      "Spanndurchmesser von 1.6535 inch auf 1.752 inch.\nFehler: 1, Warnungen: 0, Hinweise: 0\n");
}

TEST(Report, HasNumbersForPrograms) {
  const auto json = check::JsonOf({Overlap()}, {Translations(), LengthUnit::kInch});
  EXPECT_EQ(json["counts"], nlohmann::ordered_json({{"error", 1}, {"warning", 0}, {"note", 0}}));
  const auto& finding = json["findings"][0];
  EXPECT_EQ(finding["rule"], "EQ-201");
  EXPECT_EQ(finding["severity"], "error");
  EXPECT_EQ(finding["spur"], 1);
  EXPECT_EQ(finding["where"], "sub");
  EXPECT_EQ(finding["values"]["overlap"], 1.25);
  EXPECT_EQ(finding["at"]["x"], -12);
  EXPECT_EQ(finding["at"], (nlohmann::ordered_json{{"x", -12.0}, {"r", 21.0}}));
  EXPECT_EQ(finding["change"],
            (nlohmann::ordered_json{{"value", "clamp_diameter"}, {"from", 42.0}, {"to", 44.5}}));
}

TEST(Report, HasTheAngleOfAPlaceThatIsNotInTheUprightPlane) {
  check::Finding finding = Overlap();
  finding.area = {.degrees = 30, .region = {}};
  finding.change.reset();
  const auto json = check::JsonOf({finding}, {Translations()})["findings"][0];
  EXPECT_EQ(json["at"]["angle"], 30);
  EXPECT_FALSE(json.contains("change"));
}

TEST(Report, HasThePartThatAFindingIsAbout) {
  check::Finding finding = Overlap();
  EXPECT_FALSE(check::JsonOf({finding}, {Translations()})["findings"][0].contains("part"));
  finding.part = show::Part::kJaw;
  EXPECT_EQ(check::JsonOf({finding}, {Translations()})["findings"][0]["part"], "jaw");
}

TEST(Report, PutsTermsIntoTheirPlacesAlone) {
  check::Finding finding = Overlap();
  finding.change.reset();
  finding.sentence = {"A body cannot be made: %1.", {std::string("100%2 %1")}};
  EXPECT_EQ(check::TextOf(finding, {Translations()}), "A body cannot be made: 100%2 %1.");
}

TEST(Report, IsTranslated) {
  ExpectTranslated(check::kTextSection, MarkedTexts("bench/check"));
}

TEST(Rules, HaveStableNumbersInOrder) {
  EXPECT_EQ(check::Rules().size(), 18U);
  EXPECT_TRUE(std::ranges::is_sorted(check::Rules(), {}, &check::Rule::id));
  EXPECT_EQ(check::FindRule("eq-201"), check::FindRule("EQ-201"));
  EXPECT_EQ(check::FindRule("EQ-999"), nullptr);
}

}  // namespace
}  // namespace vanzet::test
