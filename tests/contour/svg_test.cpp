#include <regex>

#include "base/numbers.h"
#include "contour/drawing.h"
#include "contour_fixture.h"

namespace vanzet::contour {
namespace {

using geometry::Point;

class SvgTest : public ContourTest {
 protected:
  static std::string Picture(const Contours& contours, bool numbers = false) {
    Drawing drawing;
    drawing.layers.push_back({Drawing::Role::kMain, &contours});
    drawing.numbers = numbers;
    return Svg(drawing);
  }

  static std::vector<std::string> All(const std::string& svg, const std::string& pattern) {
    const std::regex regex(pattern);
    std::vector<std::string> found;
    for (std::sregex_iterator at(svg.begin(), svg.end(), regex), end; at != end; ++at)
      found.push_back((*at)[1]);
    return found;
  }
  static std::vector<double> Numbers(const std::string& text) {
    std::vector<double> numbers;
    for (const std::string& word : All(text, "(-?[0-9.]+(?:e[-+][0-9]+)?)"))
      numbers.push_back(RealOrZero(word));
    return numbers;
  }

  /// Where a point of the drawing is on the screen, by the picture's own transform.
  static Point OnScreen(const std::string& svg, const Point& point) {
    const std::vector<double> m = Numbers(All(svg, "matrix\\(([^)]*)\\)").at(0));
    return {m[0] * point.x + m[2] * point.y + m[4], m[1] * point.x + m[3] * point.y + m[5]};
  }
  static void ExpectInView(const std::string& svg, const Point& point) {
    const std::vector<double> view = Numbers(All(svg, "viewBox=\"([^\"]*)\"").at(0));
    const Point at = OnScreen(svg, point);
    EXPECT_GT(at.x, 10);
    EXPECT_GT(at.y, 10);
    EXPECT_LT(at.x, view[2] - 10);
    EXPECT_LT(at.y, view[3] - 10);
  }
};

TEST_F(SvgTest, APathHasTheLinesAndArcsOfItsContour) {
  const std::string svg = Picture(Read("k1 e x0 y0\nx30 y0\nax30 y20 x30 y10\ntx0 y50 x0 y20\nek\n"));
  // Three quarters of a turn have the large flag; with y up anticlockwise is the positive sweep.
  EXPECT_THAT(All(svg, "class=\"contour\" d=\"([^\"]*)\""),
              testing::ElementsAre("M0 0 L30 0 A10 10 0 0 1 30 20 A30 30 0 1 0 0 50"));
}

TEST_F(SvgTest, ClosedContoursAreClosedAndFilledTogether) {
  const std::string svg = Picture(Read(
      "k1 e x0 y0\nx9 y0\nx9 y9\nx0 y0\nek\nk2 e x6 y2\nx7 y2\nx7 y3\nx6 y2\nek\nk3 e x0 y1\nx1 y9\nek\n"));
  EXPECT_THAT(All(svg, "class=\"fill\"[^>]* d=\"([^\"]*)\""),
              testing::ElementsAre("M0 0 L9 0 L9 9 L0 0 Z M6 2 L7 2 L7 3 L6 2 Z"));
  EXPECT_THAT(svg, testing::HasSubstr("fill-rule=\"evenodd\""));
}

TEST_F(SvgTest, TheViewHoldsEverythingWithYUp) {
  for (const char* text :
       {kRoundedSquare, "k1 e x5000 y0\nax-5000 y0 x0 y0\nek\n", "k1 e x3 y7\nx3 y7.001\nek\n",
        "k1 e x-1e6 y0\nx1e6 y0\nek\n", "k1 e x0.001 y0\nx0 y0\nek\n"}) {
    const Contours contours = Read(text);
    const std::string svg = Picture(contours);
    const Facts facts = FactsOf(contours[0]);
    ExpectInView(svg, facts.low);
    ExpectInView(svg, facts.high);
    EXPECT_LE(OnScreen(svg, facts.high).y, OnScreen(svg, facts.low).y);
  }
}

TEST_F(SvgTest, MarksAreInViewTooAndLinked) {
  const Contours contours = Read(kRoundedSquare);
  Drawing drawing;
  drawing.layers.push_back({Drawing::Role::kMain, &contours});
  drawing.marks.push_back({Drawing::Mark::Kind::kAsked, {100, 90}});
  drawing.links.push_back({{100, 90}, {20, 12}});
  const std::string svg = Svg(drawing);
  ExpectInView(svg, {100, 90});
  EXPECT_THAT(svg, testing::HasSubstr("\"M100 90 L20 12\""));
}

TEST_F(SvgTest, EveryContourHasAStartAndAnArrowAlongItsWay) {
  const std::string svg = Picture(Read("k1 e x0 y0\nx100 y0\nx100 y0.01\nek\n"));
  EXPECT_THAT(svg, testing::HasSubstr("class=\"start\" cx=\"0\" cy=\"0\""));
  const std::vector<std::string> arrows = All(svg, "class=\"arrow\" d=\"([^\"]*)\"");
  ASSERT_EQ(arrows.size(), 1U) << "the second span is too short for one";
  const std::vector<double> n = Numbers(arrows[0]);
  EXPECT_NEAR((n[0] + n[2]) / 2, 50, 1e-6) << "in the middle of the span";
  EXPECT_GT(n[0], n[2]) << "its tip is in front";
  EXPECT_NEAR(n[3], -n[5], 1e-6);
}

TEST_F(SvgTest, NumbersAreNextToTheirVerticesAndApart) {
  const Contours contours = Read(kRoundedSquare);
  const std::string svg = Picture(contours, true);
  EXPECT_THAT(All(svg, ">([0-9]+)</text>"), testing::ElementsAre("0", "1", "2", "3", "4", "5", "6", "7"));
  EXPECT_TRUE(All(Picture(contours), "(<text)").empty());
  const auto xs = All(svg, "<text x=\"([^\"]*)\""), ys = All(svg, "<text x=\"[^\"]*\" y=\"([^\"]*)\"");
  for (std::size_t i = 0; i < xs.size(); ++i) {
    geometry::spVertex vertex;
    contours[0].curve.Get(static_cast<int>(i), vertex);
    const Point label(RealOrZero(xs[i]), RealOrZero(ys[i]));
    EXPECT_LT(Dist(label, OnScreen(svg, vertex.p)), 30) << i;
    for (std::size_t j = 0; j < i; ++j) {
      EXPECT_GT(Dist(label, Point(RealOrZero(xs[j]), RealOrZero(ys[j]))), 10) << i << " and " << j;
    }
  }
}

TEST_F(SvgTest, NumbersWithoutRoomAreLeftOut) {
  std::string crowd = "k1 e x0 y0\n";
  for (int i = 1; i <= 900; ++i) crowd += "x" + std::to_string(i % 30) + " y" + std::to_string(i / 30) + "\n";
  const std::size_t shown = All(Picture(Read(crowd + "ek\n"), true), "(<text)").size();
  EXPECT_GT(shown, 50U);
  EXPECT_LT(shown, 901U);
}

}  // namespace
}  // namespace vanzet::contour
