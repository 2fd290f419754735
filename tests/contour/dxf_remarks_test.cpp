#include "base/number_text.h"
#include "dxf_fixture.h"

namespace vanzet::contour {
namespace {

class DxfRemarksTest : public DxfTest {
 protected:
  static std::vector<std::string> Remarks(const std::string& entities, const DxfOptions& options = {}) {
    const auto content = Dxf(Drawing(entities), options);
    std::vector<std::string> texts;
    if (!content) ADD_FAILURE() << content.fault().Message();
    if (content) {
      for (const Remark& remark : content->remarks) texts.push_back(remark.text);
    }
    return texts;
  }
};

TEST_F(DxfRemarksTest, OneLineCountsWhatIsLeftOut) {
  EXPECT_THAT(
      Remarks(
          std::string(kLine) +
          "|0 TEXT|8 0|1 hello|0 REGION|8 0|0 TEXT|1 x|0 ARC|8 0|10 0|20 0|40 1|50 0|51 9|210 1|220 0|230 0"
          "|0 LINE|67 1|10 0|20 0|11 1|21 1|0 POLYLINE|70 16|0 VERTEX|10 0|20 0|0 SEQEND"
          "|0 CIRCLE|10 0|20 0|40 0|0 VIEWPORT|8 0"),
      testing::ElementsAre("d.dxf: left out 1 ARC or CIRCLE without a radius, 1 ARC seen edge-on, 1 LINE on "
                           "paper, 1 POLYLINE that is a mesh, 1 REGION, 2 TEXT"));
}

TEST_F(DxfRemarksTest, OnlyTheChosenLayerCounts) {
  EXPECT_THAT(Remarks(std::string(kLine) + "|0 TEXT|8 Notes|1 hello", {.layer = "0"}), testing::IsEmpty());
}

TEST_F(DxfRemarksTest, ADrawingOfWhichNothingIsReadSaysWhy) {
  EXPECT_EQ(Refused(Drawing("0 REGION|8 0|0 TEXT|8 0|0 TEXT|8 0")),
            "d.dxf: has no lines or arcs; left out 1 REGION, 2 TEXT");
}

TEST_F(DxfRemarksTest, WhatIsThereTwiceIsDropped) {
  const std::string twice = std::string(kLine) +
                            "|0 LINE|8 B|10 3|20 4|11 1|21 2"
                            "|0 CIRCLE|10 9|20 9|40 2|0 CIRCLE|10 9|20 9|40 2.0000000001";
  EXPECT_EQ(ContoursOf(twice).size(), 2U);
  EXPECT_THAT(Remarks(twice), testing::ElementsAre("d.dxf: dropped what is there twice: 1 CIRCLE, 1 LINE"));
  EXPECT_EQ(ContoursOf(twice, {.layer = "B"}).size(), 1U) << "on another layer there is only one";
}

TEST_F(DxfRemarksTest, AnOutlineIsTheSameFromEveryStart) {
  const std::string square =
      "0 LWPOLYLINE|90 4|70 1|10 0|20 0|10 5|20 0|10 5|20 5|10 0|20 5|"
      "0 LWPOLYLINE|90 4|70 1|10 5|20 5|10 5|20 0|10 0|20 0|10 0|20 5";
  EXPECT_EQ(ContoursOf(square).size(), 1U);
  EXPECT_THAT(Remarks(square), testing::ElementsAre("d.dxf: dropped what is there twice: 1 LWPOLYLINE"));
}

TEST_F(DxfRemarksTest, AnOutlineOfLinesAndItsPolylineAreTheSame) {
  const std::string triangle =
      "0 LWPOLYLINE|90 3|70 1|10 0|20 0|10 5|20 0|10 5|20 5|0 LINE|10 5|20 5|11 5|21 0|"
      "0 LINE|10 5|20 0|11 0|21 0|0 LINE|10 0|20 0|11 5|21 5";
  EXPECT_EQ(ContoursOf(triangle).size(), 1U);
  EXPECT_THAT(Remarks(triangle),
              testing::ElementsAre("d.dxf: dropped what is there twice: 1 joined contour"));
}

TEST_F(DxfRemarksTest, LinesThatOverlapInPartAreCounted) {
  EXPECT_THAT(Remarks("0 LINE|10 0|20 0|11 9|21 0|0 LINE|10 5|20 0|11 2|21 0|0 LINE|10 7|20 0|11 15|21 0"),
              testing::ElementsAre("d.dxf: 2 lines overlap another one; the first begins at 5, 0"));
  EXPECT_THAT(Remarks("0 LINE|10 7|20 7.5|11 -2|21 3|0 LWPOLYLINE|90 3|10 5|20 6.5|10 3|20 5.5|10 3|20 9"),
              testing::ElementsAre("d.dxf: 1 line overlaps another one; the first begins at 5, 6.5"));
  // There and back, over the whole width of the drawing.
  EXPECT_THAT(Remarks("0 LWPOLYLINE|90 3|10 0|20 0|10 1000|20 0.001|10 500|20 0.0005"),
              testing::ElementsAre("d.dxf: 1 line overlaps another one; the first begins at 1000, 0.001"));
}

TEST_F(DxfRemarksTest, LinesThatMeetOrAreParallelDoNotOverlap) {
  for (const char* entities :
       {"0 LINE|10 0|20 0|11 5|21 0|0 LINE|10 5|20 0|11 9|21 0",
        "0 LINE|10 0|20 0|11 5|21 0|0 LINE|10 0|20 0.001|11 9|21 0.001|0 LINE|10 1|20 0.0005|11 4|21 0.0006",
        "0 LINE|10 0|20 0|11 9|21 0|0 LINE|10 4|20 0|11 4|21 5",
        "0 LINE|10 0|20 0|11 9|21 0|0 LWPOLYLINE|90 2|10 2|20 0|42 0.2|10 4|20 0"}) {
    EXPECT_THAT(Remarks(entities), testing::Not(testing::Contains(testing::HasSubstr("overlap"))))
        << entities;
  }
}

// Each line in both halves of the directions, and lines nearly level to either side.
TEST_F(DxfRemarksTest, OverlapsAreFoundInEveryDirection) {
  for (int degrees = -180; degrees <= 180; degrees += 15) {
    const double x = std::cos(degrees * kPi / 180), y = std::sin(degrees * kPi / 180);
    const auto line = [&](double from, double to) {
      return "0 LINE|10 " + FixedText(x * from, 6) + "|20 " + FixedText(y * from, 6) + "|11 " +
             FixedText(x * to, 6) + "|21 " + FixedText(y * to, 6);
    };
    for (const char* way : {"there", "back"}) {
      const bool isBack = way[0] == 'b';
      const std::string second = isBack ? line(90, 30) : line(30, 90);
      EXPECT_THAT(Remarks(line(-50, 60) + "|" + second), testing::SizeIs(1)) << degrees << " " << way;
    }
  }
}

TEST_F(DxfRemarksTest, OpenEndsComeWithTheJoinThatClosesThem) {
  const std::string gap =
      "0 LINE|10 0|20 0|11 5|21 0|0 LINE|10 5|20 0.02|11 5|21 5|0 LINE|10 5|20 5|11 0|21 0.4";
  EXPECT_THAT(Remarks(gap),
              testing::ElementsAre("d.dxf: 2 open contours; nearest ends 0.02 mm apart, try --join 0.05"));
  EXPECT_THAT(Remarks(gap, {.join = 0.05}),
              testing::ElementsAre("d.dxf: 1 open contour; nearest ends 0.4 mm apart, try --join 1"));
  EXPECT_THAT(Remarks(gap, {.join = 1}), testing::IsEmpty());
  EXPECT_EQ(ContoursOf(gap, {.join = 1}).size(), 1U);
}

TEST_F(DxfRemarksTest, AnOpenContourOfItsOwnIsNoGap) {
  EXPECT_THAT(Remarks("0 LINE|10 0|20 0|11 5|21 0|0 LINE|10 5|20 3|11 5|21 9"), testing::IsEmpty());
}

TEST_F(DxfRemarksTest, TheNearestOfManyEndsAreFound) {
  std::string lines;
  for (int i = 0; i < 300; ++i) {
    const std::string x = std::to_string(i * 7 % 300) + (i == 171 ? ".97" : ".1"),
                      y = i % 2 == 0 ? "0.2" : "0";
    lines += "0 LINE|10 " + x + "|20 " + y + "|11 " + x + "|21 " + std::to_string(100 + 2 * i) + "|";
  }
  lines.pop_back();
  const auto content = Dxf(Drawing(lines));
  ASSERT_TRUE(content);
  double nearest = 1;
  const auto end = [&](std::size_t i) {
    const auto& curve = content->contours[i / 2].curve;
    return i % 2 == 0 ? curve.Start() : curve.End();
  };
  for (std::size_t a = 0; a < 600; ++a) {
    for (std::size_t b = 0; b < a; ++b) nearest = std::min(nearest, Dist(end(a), end(b)));
  }
  ASSERT_LT(nearest, 1);
  ASSERT_EQ(content->remarks.size(), 1U);
  std::ostringstream expected;
  expected << "nearest ends " << std::setprecision(3) << nearest << " mm apart";
  EXPECT_THAT(content->remarks[0].text, testing::HasSubstr(expected.str()));
}

}  // namespace
}  // namespace vanzet::contour
