#include "section/picture.h"

#include <locale>
#include <sstream>

#include "section_fixture.h"
#include "support/catalogues.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;
using testing::Not;

class SectionPictures : public SectionTest {
 protected:
  std::string Svg(const section::PictureOptions& options = {}, const Translations& texts = {}) {
    const auto svg = section::PictureSvg(Cut(), options, texts);
    EXPECT_TRUE(svg);
    return svg ? *svg : "";
  }
  void Define() {
    Clamp(0, kChuck, kHardJaw);
    PutBillet(0, 60, 120);
    PutDatum({.outMain = 90, .originMain = 10});
  }
  static std::string AttributeOf(const std::string& svg, const std::string& name) {
    const std::size_t at = svg.find(" " + name + "=\"") + name.size() + 3;
    return svg.substr(at, svg.find('"', at) - at);
  }
  static double MillimetresOf(const std::string& svg, const std::string& name) {
    std::istringstream length(AttributeOf(svg, name));
    length.imbue(std::locale::classic());
    double millimetres = 0;
    length >> millimetres;
    return millimetres;
  }
};

TEST_F(SectionPictures, AreInMillimetresAndTrueToScale) {
  Define();
  const std::string svg = Svg({.scale = 0.5});
  std::istringstream box(AttributeOf(svg, "viewBox"));
  box.imbue(std::locale::classic());
  double x = 0, y = 0, width = 0, height = 0;
  ASSERT_TRUE(box >> x >> y >> width >> height);
  EXPECT_LT(x, -220);
  EXPECT_GT(x + width, 10);
  EXPECT_LT(y, -80);
  EXPECT_NEAR(MillimetresOf(svg, "width"), width / 2, 1e-3);
  EXPECT_NEAR(MillimetresOf(svg, "height"), height / 2, 1e-3);
  EXPECT_TRUE(AttributeOf(svg, "width").ends_with("mm"));
  EXPECT_THAT(svg, HasSubstr("scale 1:2"));
}

TEST_F(SectionPictures, DrawAnAlertInRedWithItsCaption) {
  Define();
  EXPECT_THAT(Svg(), Not(HasSubstr("class=\"alert\"")));
  const std::string svg =
      Svg({.alert = {.caption = "Too <long> for one line, " + std::string(200, 'x') + " end",
                     .bodies = {"main billet"},
                     .place = geometry::Point(-20, 30)}});
  EXPECT_THAT(svg, HasSubstr("class=\"alert\""));
  EXPECT_THAT(svg, HasSubstr("<circle cx=\"-20\" cy=\"30\""));
  EXPECT_THAT(svg, HasSubstr(">Too &lt;long&gt; for one line,</text>"));
  EXPECT_THAT(svg, HasSubstr(">end</text>"));
}

TEST_F(SectionPictures, HaveTheBodiesInTheCoordinatesOfTheSection) {
  Define();
  const std::string svg = Svg();
  const std::size_t body = svg.find("data-body=\"main billet\"");
  ASSERT_NE(body, std::string::npos);
  const std::string path = AttributeOf(svg.substr(svg.find("class=\"area\"", body)), "d");
  for (const char* corner : {"-110 0", "10 0", "10 30", "-110 30"}) EXPECT_THAT(path, HasSubstr(corner));
  // The axis does not bound the billet.
  const std::string outline = AttributeOf(svg.substr(svg.find("class=\"outline\"", body)), "d");
  EXPECT_THAT(outline, HasSubstr("L10 30"));
  EXPECT_THAT(outline, Not(HasSubstr("Z")));
}

TEST_F(SectionPictures, ShowOnlyTheLayersThatWereAskedFor) {
  Define();
  const std::string svg = Svg({.layers = {"billet", "datum"}});
  EXPECT_THAT(svg, HasSubstr("data-layer=\"billet\""));
  EXPECT_THAT(svg, HasSubstr("data-layer=\"datum\""));
  EXPECT_THAT(svg, Not(HasSubstr("data-layer=\"devices\"")));
  EXPECT_THAT(svg, Not(HasSubstr("<text")));
  const auto refused = section::PictureSvg(Cut(), {.layers = {"bilet"}}, {});
  ASSERT_FALSE(refused);
  EXPECT_EQ(refused.fault().kind, FaultKind::kMissing);
  EXPECT_EQ(refused.fault().text,
            "layer 'bilet' does not exist; the layers are: devices, billet, part, datum, dimensions, legend");
}

TEST_F(SectionPictures, SayLengthsInInchesAndInGerman) {
  Define();
  PutBillet(0, 60, 140);
  EXPECT_THAT(Svg(), HasSubstr(">Clamp diameter Ø60<"));
  EXPECT_THAT(Svg({.unit = LengthUnit::kInch}), HasSubstr(">Clamp diameter Ø2.3622<"));
  EXPECT_THAT(Svg({}, Catalogues().at("de")), HasSubstr(">Spanndurchmesser Ø60<"));
}

TEST_F(SectionPictures, NameTheDevicesInTheLegend) {
  Define();
  EXPECT_THAT(Svg(), HasSubstr(">Clamp device"));
}

TEST(SectionTexts, AreTranslatedIntoEveryLanguage) {
  ExpectTranslated(section::kTextSection, MarkedTexts("bench/section"));
}

TEST(Scales, AreUsualOnes) {
  section::Section section;
  geometry::KurveEx square;
  square.Start({0, 0});
  for (const auto& [x, y] : {std::pair(400, 0), std::pair(400, 50), std::pair(0, 50), std::pair(0, 0)}) {
    square.Add(x, y);
  }
  section.bodies.push_back({"bar", "", scene::Kind::kBillet, false, geometry::Clean(square)});
  EXPECT_EQ(section::UsualScale(section), 0.5);
  EXPECT_EQ(section::ScaleText(0.5), "1:2");
  EXPECT_EQ(section::ScaleText(10), "10:1");
}

}  // namespace
}  // namespace vanzet::test
