#include "drawing/picture.h"

#include "base/numbers.h"
#include "drawing_fixture.h"
#include "support/golden.h"

namespace vanzet::drawing {
namespace {

using testing::HasSubstr;
using testing::Not;

class Pictures : public testing::Test {
 protected:
  Pictures() {
    const Pen magenta{FindColour("magenta"), FindLineStyle("solid")},
        dotted{FindColour("grey"), FindLineStyle("dot")};
    EXPECT_TRUE(board.BeginLayer("Billet", magenta));
    EXPECT_TRUE(board.CreateFigure("F"));
    EXPECT_TRUE(board.Append("F", CurveThrough({{0, -20}, {-80, -20}, {-80, 20}, {0, 20}})));
    EXPECT_TRUE(board.Append("F", geometry::Kurve(geometry::Point(-40, 0), 10, geometry::CW)));
    EXPECT_TRUE(board.Insert("F", {1, 0, 0, 1, 15, 0}));
    EXPECT_TRUE(board.BeginLayer("<Marks & \"more\" \xff\xc3\xa4>", dotted));
    EXPECT_TRUE(board.PutLine(-100, geometry::CLine(geometry::Point(-30, 7), 0, 1, true)));
    board.window = Window::kConstruction;
    EXPECT_TRUE(board.PutContour(1, Square(12.5)));
  }
  std::string Svg(const PictureOptions& options = {}) const {
    const auto svg = PictureSvg(board.drawing(), options);
    return svg ? *svg : svg.fault().Message();
  }
  Board board;
};

TEST_F(Pictures, OfTheDisplayWindow) {
  EXPECT_GOLDEN(Svg(), "drawing/display.svg");
}

TEST_F(Pictures, OfTheConstructionWindow) {
  EXPECT_GOLDEN(Svg({.window = Window::kConstruction}), "drawing/construction.svg");
}

TEST_F(Pictures, OfSomeLayersHaveNoOthers) {
  const std::string svg = Svg({.layers = {"Billet"}});
  EXPECT_THAT(svg, HasSubstr("data-layer=\"Billet\""));
  EXPECT_THAT(svg, Not(HasSubstr("Marks")));
  EXPECT_EQ(Svg({.layers = {"Nowhere"}}).substr(0, 54),
            "layer 'Nowhere' does not exist; the layers are: 0, <Ma");
}

TEST_F(Pictures, NamesAreSafeInXml) {
  EXPECT_THAT(Svg(), HasSubstr("<title>&lt;Marks &amp; &quot;more&quot; \xEF\xBF\xBD\xc3\xa4&gt;</title>"));
}

TEST_F(Pictures, HaveTheSizeThatIsAskedFor) {
  EXPECT_THAT(Svg({.width = 300, .height = 200}),
              HasSubstr("width=\"300\" height=\"200\" viewBox=\"0 0 300 200\""));
  EXPECT_THAT(Svg({.width = 300}), HasSubstr("width=\"300\" height=\"1"));
  EXPECT_THAT(Svg({.height = 200}), HasSubstr("height=\"200\""));
  EXPECT_THAT(Svg({.width = 32, .height = 8192}), HasSubstr("viewBox=\"0 0 32 8192\""));
}

TEST_F(Pictures, LinesAreAsWideAtEveryScale) {
  const auto strokeOf = [](double size) {
    Board small;
    EXPECT_TRUE(small.PutContour(1, Square(size)));
    const std::string svg = *PictureSvg(small.drawing(), {.width = 464, .height = 464});
    const std::size_t at = svg.find("stroke-width=\"", svg.find("class=\"black solid\"")) + 14;
    return RealOrZero(svg.substr(at)) / size;
  };
  EXPECT_DOUBLE_EQ(strokeOf(4), 0.004) << "a picture of 400 pixels without its margins";
  EXPECT_DOUBLE_EQ(strokeOf(4000), 0.004);
}

TEST_F(Pictures, OfNothingAreEmptySheets) {
  const std::string svg = *PictureSvg(Drawing(), {});
  EXPECT_THAT(svg, HasSubstr("class=\"axis\""));
  EXPECT_THAT(svg, Not(HasSubstr("class=\"layer\"")));
}

TEST_F(Pictures, OfALineAloneShowIt) {
  Board lone;
  ASSERT_TRUE(lone.PutLine(-100, geometry::CLine(geometry::Point(-30, 0), 0, 1, true)));
  EXPECT_THAT(*PictureSvg(lone.drawing(), {}), HasSubstr("d=\"M-30 -"));
}

/// Width and height in the head of a picture.
std::pair<int, int> SizeOf(const std::string& svg) {
  int width = 0, height = 0;
  std::sscanf(svg.c_str(), "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%d\" height=\"%d\"", &width,
              &height);
  return {width, height};
}

/// A drawing of a rectangle at the axis.
Drawing RectangleOf(double length, double radius) {
  Drawing drawing;
  geometry::Kurve curve;
  curve.Start({0, -radius});
  for (const geometry::Point& corner : {geometry::Point(length, -radius), geometry::Point(length, radius),
                                        geometry::Point(0, radius), geometry::Point(0, -radius)}) {
    curve.Add(corner);
  }
  drawing.contours[1] = {{curve, kFirstLayer, Pen()}, Window::kDisplay};
  return drawing;
}

TEST(PictureSizes, OfALongBarAreLargerAndNotAFlatStrip) {
  const auto [width, height] = SizeOf(*PictureSvg(RectangleOf(3000, 32), {}));
  EXPECT_EQ(width, 1600);
  EXPECT_EQ(height, 400);
  const auto [narrow, tall] = SizeOf(*PictureSvg(RectangleOf(10, 500), {}));
  EXPECT_EQ(narrow, 400);
  EXPECT_EQ(tall, 1600);
}

TEST(PictureSizes, OfUsualDrawingsAreTheUsualOnes) {
  EXPECT_EQ(SizeOf(*PictureSvg(RectangleOf(200, 50), {})), std::pair(800, 432));
}

TEST(PictureSizes, FollowTheSideThatIsGiven) {
  EXPECT_EQ(SizeOf(*PictureSvg(RectangleOf(3000, 32), {.width = 1000})), std::pair(1000, 250));
  EXPECT_EQ(SizeOf(*PictureSvg(RectangleOf(3000, 32), {.width = 1000, .height = 90})), std::pair(1000, 90));
}

}  // namespace
}  // namespace vanzet::drawing
