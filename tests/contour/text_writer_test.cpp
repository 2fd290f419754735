#include <random>

#include "contour/builder.h"
#include "contour_fixture.h"
#include "support/places.h"
#include "support/temporary_folder.h"

namespace vanzet::contour {
namespace {

class TextWriterTest : public ContourTest {};

TEST_F(TextWriterTest, WritesTheFormWithItsHead) {
  EXPECT_EQ(TextForm(Read("k7 e x0 y0\nx10 y0\nax10 y10 x10 y5\nx0 y10\nek\n")),
            "k7 e\nrem Number of Spans = 3 (Open)\nrem Perim = 35.708 mm\n"
            "x0 y0\nx10 y0\nax10 y10 x10 y5\nx0 y10\nek\n\n");
}

TEST_F(TextWriterTest, WritesAreaAndDirectionOfClosedContours) {
  // The sign of the area is the library's: clockwise is positive.
  EXPECT_THAT(TextForm(Read("k1 e x0 y0\nx0 y4\nx3 y4\nx3 y0\nx0 y0\nek\n")),
              testing::HasSubstr("(Closed)\nrem Perim = 14 mm\nrem Area = 12 sq.mm (Clockwise)\n"));
  EXPECT_THAT(TextForm(Read("k1 e x0 y0\nx3 y0\nx3 y4\nx0 y4\nx0 y0\nek\n")),
              testing::HasSubstr("rem Area = -12 sq.mm (AntiClockwise)\n"));
}

TEST_F(TextWriterTest, ThePageOfTheFormShowsWhatIsReadAndWritten) {
  const std::string page = test::ReadBytes(VANZET_SOURCE_DIR "/docs/formats/contour.md");
  const auto block = [&](const std::string& first) {
    const std::size_t start = page.find("```\n" + first) + 4;
    return page.substr(start, page.find("```", start) - start);
  };
  EXPECT_EQ(TextForm(Read(block("rem A plate"))), block("k1 e\nrem Number") + "\n");
}

TEST_F(TextWriterTest, WhatWasWrittenReadsBackTheSame) {
  std::string contours = kRoundedSquare;
  contours += "k2 e x0.1 y1e-7\nx0.1 y1e-7\ntx5.1 y0 x2.6 y0\nek\n";
  const std::string text = TextForm(Read(contours));
  EXPECT_EQ(TextForm(Read(text)), text);
}

TEST_F(TextWriterTest, AnyContourReadsBackToFourteenDigits) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> coordinate(-1e5, 1e5), direction(0, 3);
  Builder builder;
  ASSERT_TRUE(builder.Start({coordinate(random), coordinate(random)}));
  geometry::Point at = {coordinate(random), coordinate(random)};
  ASSERT_TRUE(builder.LineTo(at));
  for (int i = 0; i < 500; ++i) {
    const geometry::Point end(coordinate(random), coordinate(random));
    const geometry::Point middle((at.x + end.x) / 2, (at.y + end.y) / 2);
    const int dir = static_cast<int>(direction(random)) - 1;
    ASSERT_TRUE(dir == 0 ? builder.LineTo(end) : builder.ArcTo(dir, end, middle));
    at = end;
  }
  const Contours contours = {builder.Take(1)};
  const Contours back = Read(TextForm(contours));
  ASSERT_EQ(back.size(), 1U);
  ASSERT_EQ(back[0].curve.SpanCount(), contours[0].curve.SpanCount());
  for (std::size_t i = 0; i < back[0].curve.spans.size(); ++i) {
    const geometry::Span &a = contours[0].curve.spans[i], &b = back[0].curve.spans[i];
    EXPECT_EQ(a.dir, b.dir);
    EXPECT_THAT(b.p1, IsAt(a.p1.x, a.p1.y, 1e-8));
  }
}

TEST_F(TextWriterTest, WhatTurningLeavesOfAZeroIsAZero) {
  EXPECT_THAT(TextForm(Read("k1 e x-1e-15 y0\nx1 y6e-16\nek\n")), testing::HasSubstr("\nx0 y0\nx1 y0\n"));
}

}  // namespace
}  // namespace vanzet::contour
