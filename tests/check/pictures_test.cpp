#include "check/pictures.h"

#include "setup_fixture.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;
using testing::Not;

class FindingPictures : public SetupTest {
 protected:
  std::vector<check::Picture> Pictures(const check::Finding& finding, int number = 1) {
    const auto made =
        check::PicturesOf(finding, number, {equipment, Scene()}, {Translations(), LengthUnit::kMillimetre});
    EXPECT_TRUE(made) << made.fault().text;
    return made ? *made : std::vector<check::Picture>(2);
  }
  std::string Section(const check::Finding& finding) { return Pictures(finding).front().bytes; }

  /// The part of a picture that is drawn in red.
  static std::string AlertOf(const std::string& svg) {
    const std::size_t from = svg.find("<g class=\"alert\"");
    return from == std::string::npos ? "" : svg.substr(from, svg.find("</g>", from) - from);
  }
  static int CountOf(const std::string& text, const std::string& part) {
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
  }
};
INSTANTIATE_TEST_SUITE_P(Spindles, FindingPictures, testing::Bool(), SpindleName);

TEST_P(FindingPictures, FillAClashInRedBetweenItsBodies) {
  AddSolid("thick", Rectangle(-100, 0, 2, 22.25));
  UseSolid("thick", 100, 42);
  const auto found = Found();
  ASSERT_EQ(found.size(), 1U);
  const std::string svg = Section(found.front()), alert = AlertOf(svg);
  EXPECT_EQ(CountOf(alert, "class=\"outline\""), 2) << "the jaw and the billet";
  EXPECT_EQ(CountOf(alert, "class=\"area\""), 1);
  EXPECT_THAT(svg, HasSubstr("EQ-201: The jaw cuts 1.25 mm into the billet."));
}

TEST_P(FindingPictures, MarkAGapByItsPlaceAlone) {
  AddSolid("thin", Rectangle(-100, 0, 2, 20));
  UseSolid("thin", 100, 42);
  const auto found = Found();
  ASSERT_EQ(found.size(), 1U);
  const std::string alert = AlertOf(Section(found.front()));
  EXPECT_THAT(alert, HasSubstr("<circle"));
  EXPECT_THAT(alert, Not(HasSubstr("class=\"area\"")));
}

TEST_P(FindingPictures, HaveTheirFindingInTheirNames) {
  AddSolid("thick", Rectangle(-100, 0, 2, 22.25));
  UseSolid("thick", 100, 42);
  const auto found = Found();
  ASSERT_EQ(found.size(), 1U);
  const auto pictures = Pictures(found.front());
  ASSERT_EQ(pictures.size(), 2U);
  EXPECT_EQ(pictures[0].name, "EQ-201-spur0-" + Place() + "-section.svg");
  EXPECT_EQ(pictures[1].name, "EQ-201-spur0-" + Place() + "-3d.png");
  EXPECT_EQ(pictures[1].bytes.substr(1, 3), "PNG");
  EXPECT_EQ(Pictures(found.front(), 2)[0].name, "EQ-201-spur0-" + Place() + "-2-section.svg");
}

TEST_P(FindingPictures, CutWhatIsNotTurnedInThePlaneOfTheFinding) {
  AddSolid("square", Rectangle(-100, 0, 2, 22.25));
  UseSolid("square", 100, 42);
  auto found = Found();
  ASSERT_EQ(found.size(), 1U);
  ASSERT_TRUE(found.front().area);
  found.front().area->degrees = 120;
  for (std::string& body : found.front().bodies) {
    if (body.ends_with(" 1")) body.back() = '2';
  }
  EXPECT_EQ(CountOf(AlertOf(Section(found.front())), "class=\"outline\""), 2) << "the jaw of that plane";
}

}  // namespace
}  // namespace vanzet::test
