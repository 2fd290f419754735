#include "contour/dxf/layout.h"
#include "contour/dxf/reader.h"
#include "dxf_fixture.h"

namespace vanzet::contour {
namespace {

/// Insertions of a block of a circle that become ellipses.
class DxfCopiesTest : public DxfTest {
 protected:
  static std::string WithDisc(const std::string& insertions) {
    return Groups(
        "0 SECTION|2 BLOCKS|0 BLOCK|2 Disc|0 CIRCLE|10 1|20 1|40 2|0 ENDBLK|0 ENDSEC|"
        "0 SECTION|2 ENTITIES|" +
        insertions + "|0 ENDSEC|0 EOF");
  }
  static Result<DxfLayout> LaidOut(const std::string& insertions, std::size_t mostArcs) {
    std::istringstream bytes(WithDisc(insertions));
    VANZET_TRY(const auto groups, DxfGroups::Open(bytes, "d.dxf"));
    VANZET_TRY(const DxfDrawing drawing, ReadDrawing(*groups));
    int place = 0;
    auto layout = LayOut(drawing, {"", 1, ArcBudget(0.001, mostArcs)}, place);
    return layout ? std::move(layout) : groups->At(place, layout.fault().text);
  }
};

TEST_F(DxfCopiesTest, CopiesAreTheFirstOneMoved) {
  const auto layout = LaidOut(
      "0 INSERT|2 Disc|10 3|20 3|41 0.5|50 30|70 30|71 20|44 16|45 8|0 INSERT|2 Disc|10 -64|20 0|41 2", 100);
  ASSERT_TRUE(layout) << layout.fault().Message();
  ASSERT_EQ(layout->pieces.size(), 601U);
  const Piece &first = layout->pieces[0].piece, &last = layout->pieces[599].piece;
  ASSERT_EQ(first.segments.size(), last.segments.size());
  const geometry::Vector2d shift(first.start, last.start);
  EXPECT_NEAR(shift.Magnitude(), std::hypot(29 * 16.0, 19 * 8.0), 1e-9);
  for (std::size_t i = 0; i < first.segments.size(); ++i) {
    EXPECT_NEAR(Dist(first.segments[i].end + shift, last.segments[i].end), 0, 1e-9);
    EXPECT_EQ(first.segments[i].bulge, last.segments[i].bulge);
  }
  EXPECT_EQ(last.start, last.End()) << "a copy is closed, too";
}

TEST_F(DxfCopiesTest, OtherScalesAndAnglesAreFittedAnew) {
  const std::string two = "0 INSERT|2 Disc|10 0|20 0|41 0.5|0 INSERT|2 Disc|10 0|20 0|41 0.5|50 20";
  const auto layout = LaidOut(two, 200);
  ASSERT_TRUE(layout) << layout.fault().Message();
  const auto &first = layout->pieces[0].piece, &second = layout->pieces[1].piece;
  EXPECT_GT(Dist(first.start, second.start), 0.1);
  const auto refused = LaidOut(two, first.segments.size() + 10);
  ASSERT_FALSE(refused);
  EXPECT_THAT(refused.fault().Message(),
              testing::MatchesRegex(
                  "d.dxf:[0-9]+: the ellipses and splines need more than [0-9]+ arcs within 0.001 mm; use "
                  "--tolerance"));
}

TEST_F(DxfCopiesTest, AGridOfEllipsesIsNotTooMuch) {
  const auto content = Dxf(WithDisc("0 INSERT|2 Disc|10 3|20 3|41 0.5|70 2|71 13000"));
  ASSERT_TRUE(content) << content.fault().Message();
  EXPECT_EQ(content->contours.size(), 1U);
  ASSERT_EQ(content->remarks.size(), 1U);
  EXPECT_EQ(content->remarks[0].text, "d.dxf: dropped what is there twice: 25999 CIRCLE");
}

}  // namespace
}  // namespace vanzet::contour
