#include "section/layout.h"

#include <gmock/gmock.h>

#include "section/hatch.h"
#include "section/picture.h"
#include "section_fixture.h"

namespace vanzet::test {
namespace {

using section::DimensionLines;
using section::Layout;

geometry::Box BoxOfLabel(const section::Label& label, double height) {
  const double width = section::WidthOf(label.text, height);
  const double left = label.anchor == section::Anchor::kMiddle ? label.at.x - width / 2 : label.at.x;
  return {{left, label.at.y}, {left + width, label.at.y + height}};
}

std::vector<section::Label> LabelsOf(const Layout& layout) {
  std::vector<section::Label> labels = {layout.note};
  for (const DimensionLines& lines : layout.dimensions) labels.push_back(lines.label);
  for (const section::LegendEntry& entry : layout.legend) labels.push_back(entry.label);
  return labels;
}

class Layouts : public SectionTest {
 protected:
  Layout Make(const section::Section& cut, double height) {
    return section::LayOut(cut, section::TextsOf({.scale = 1}, english), height);
  }
  const Translations english;
};

TEST_F(Layouts, PutNoLabelOnAnother) {
  DefineTwoSpindles();
  const section::Section cut = Cut();
  for (const double height : {1.0, 2.8, 7.0, 20.0}) {
    const auto labels = LabelsOf(Make(cut, height));
    ASSERT_GT(labels.size(), 8U);
    for (std::size_t i = 0; i < labels.size(); ++i) {
      for (std::size_t k = i + 1; k < labels.size(); ++k) {
        EXPECT_TRUE(BoxOfLabel(labels[i], height).Outside(BoxOfLabel(labels[k], height)))
            << "at " << height << ": '" << labels[i].text << "' on '" << labels[k].text << "'";
      }
    }
  }
}

TEST_F(Layouts, KeepEveryLabelInTheBoxAndOffTheSection) {
  DefineWithCenter();
  const section::Section cut = Cut();
  const Layout layout = Make(cut, 3);
  const geometry::Box section = section::BoxOf(cut);
  for (const section::Label& label : LabelsOf(layout)) {
    const geometry::Box box = BoxOfLabel(label, 3);
    EXPECT_FALSE(layout.box.Outside(box.min) || layout.box.Outside(box.max)) << label.text;
    EXPECT_TRUE(box.max.y < 0 || box.min.y > section.max.y) << label.text;
  }
}

TEST_F(Layouts, EndTheLinesOfALengthAtItsEnds) {
  PutBillet(0, 60, 120);
  const Layout layout = Make(Cut(), 3);
  const auto found = std::ranges::find_if(
      layout.dimensions, [](const DimensionLines& lines) { return lines.label.text == "Billet length 120"; });
  ASSERT_NE(found, layout.dimensions.end());
  ASSERT_EQ(found->arrows.size(), 2U);
  EXPECT_NEAR(found->arrows[0].tip.x, -120, 1e-9);
  EXPECT_NEAR(found->arrows[1].tip.x, 0, 1e-9);
  EXPECT_LT(found->arrows[0].tip.y, 0);
}

TEST_F(Layouts, OfNothingIsOnlyANote) {
  const Layout layout = Make({}, 3);
  EXPECT_TRUE(layout.dimensions.empty());
  EXPECT_TRUE(layout.legend.empty());
  EXPECT_GT(layout.box.Width(), 0);
}

TEST(Hatches, FillARegionButNotItsHole) {
  geometry::KurveEx outside, hole;
  outside.Start({0, 0});
  for (const auto& [x, y] : {std::pair(30, 0), std::pair(30, 30), std::pair(0, 30), std::pair(0, 0)}) {
    outside.Add(x, y);
  }
  hole.SetAsCircle(geometry::ACW, {15, 15}, 5);
  const geometry::Region region = geometry::Subtract(geometry::Clean(outside), geometry::Clean(hole));
  double length = 0;
  for (const section::Line& line : section::HatchOf(region, {45, 0.5})) {
    length += Dist(line.from, line.to);
    const geometry::Point middle((line.from.x + line.to.x) / 2, (line.from.y + line.to.y) / 2);
    EXPECT_GT(Dist(middle, geometry::Point(15, 15)), 5 - 0.05);
  }
  EXPECT_NEAR(length * 0.5, region.Area(), region.Area() * 0.01) << "lines cover the area evenly";
}

}  // namespace
}  // namespace vanzet::test
