#include "contour_fixture.h"

namespace vanzet::contour {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class TextReaderTest : public ContourTest {};

TEST_F(TextReaderTest, ReadsLinesAndArcsOfBothSenses) {
  const Contour contour = ReadOne("k3 e\nx0 y0\nx10 y0\nax10 y10 x10 y5\ntx0 y10 x5 y10\nek\n");
  EXPECT_EQ(contour.number, 3);
  ASSERT_EQ(contour.curve.SpanCount(), 3);
  EXPECT_EQ(contour.curve.spans[0].dir, 0);
  EXPECT_EQ(contour.curve.spans[1].dir, 1);
  EXPECT_EQ(contour.curve.spans[2].dir, -1);
  EXPECT_THAT(contour.curve.spans[1].pc, IsAt(10, 5, 1e-12));
  EXPECT_THAT(contour.curve.spans[2].p1, IsAt(0, 10, 0));
}

TEST_F(TextReaderTest, TheStartIsOnTheHeadOrOnTheFirstVertexLine) {
  const Contour onHead = ReadOne("k1 e x3 y4\nx5 y6\nek\n");
  const Contour onLine = ReadOne("k1 e\nx3 y4\nx5 y6\nek\n");
  EXPECT_THAT(onHead.curve.start, IsAt(3, 4, 0));
  EXPECT_THAT(onLine.curve.start, IsAt(3, 4, 0));
  EXPECT_EQ(onHead.curve.SpanCount(), 1);
  EXPECT_TRUE(onHead.curve == onLine.curve);
}

TEST_F(TextReaderTest, ReadsSeveralContoursOneAfterTheOther) {
  const Contours contours = Read("k1 e x0 y0\nx1 y0\nek\n\nk9 e x0 y0\nx0 y2\nek\n");
  ASSERT_EQ(contours.size(), 2U);
  EXPECT_EQ(contours[1].number, 9);
  EXPECT_DOUBLE_EQ(contours[1].curve.perim, 2);
}

TEST_F(TextReaderTest, PassesOverRemarksBlanksAndLineEnds) {
  const Contour contour =
      ReadOne("rem before\r\n\r\n  k1 e\r\nrem in it\r\n\tx 1.5e1 y-.5 \t\r\nx +2 y3\r\n ek \r\n");
  EXPECT_THAT(contour.curve.start, IsAt(15, -0.5, 0));
  EXPECT_THAT(contour.curve.End(), IsAt(2, 3, 0));
}

TEST_F(TextReaderTest, PassesOverAByteOrderMark) {
  EXPECT_EQ(ReadOne("\xef\xbb\xbfk1 e x0 y0\nx1 y0\nek").curve.SpanCount(), 1);
}

TEST_F(TextReaderTest, KeepsVerticesThatRepeat) {
  EXPECT_EQ(ReadOne("k1 e x0 y0\nx0 y0\nx5 y0\nx5 y0\nek\n").curve.SpanCount(), 3);
}

TEST_F(TextReaderTest, ACentreThatIsALittleOffIsMovedOntoTheBisector) {
  const Contour contour = ReadOne("k1 e x10 y0\nax0 y10 x0.003 y0\nek\n");
  const geometry::Span& arc = contour.curve.spans[0];
  EXPECT_NEAR(Dist(arc.pc, arc.p0), Dist(arc.pc, arc.p1), 1e-12);
}

struct Refusal {
  const char* text;
  const char* fault;
};

TEST_F(TextReaderTest, RefusesWithThePlace) {
  const Refusal refusals[] = {
      {"", "c.txt: has no contour"},
      {"rem nothing\n\n", "c.txt: has no contour"},
      {"x1 y2\n", "c.txt:1:1: expected the start of a contour like 'k1 e', found 'x1 y2'"},
      {"ke\n", "c.txt:1:2: expected the start of a contour like 'k1 e', found 'e'"},
      {"k1\n", "c.txt:1:3: expected the start of a contour like 'k1 e', found ''"},
      {"k1 e x1\n", "c.txt:1:8: expected 'y' and a number, found ''"},
      {"k1 e x1 y2\nz\nek\n", "c.txt:2:1: expected a vertex (x, a, t), 'rem' or 'ek', found 'z'"},
      {"k1 e x1 y2\nx3,5 y1\nek\n", "c.txt:2:2: expected a number, found '3,5 y1'"},
      {"k1 e x1 y2\nxnan y1\nek\n", "c.txt:2:2: expected a number, found 'nan y1'"},
      {"k1 e x1 y2\nxinf y1\nek\n", "c.txt:2:2: expected a number, found 'inf y1'"},
      {"k1 e x1 y2\nx0x10 y1\nek\n", "c.txt:2:2: expected a number, found '0x10 y1'"},
      {"k1 e x1 y2\nx1e999 y1\nek\n", "c.txt:2:2: expected a number, found '1e999 y1'"},
      {"k1 e x1 y2\nx1 y1 z1\nek\n", "c.txt:2:7: expected the end of the line, found 'z1'"},
      {"k1 e x1 y2\nax1 y1 x2\nek\n", "c.txt:2:10: expected 'y' and a number, found ''"},
      {"k1 e\nax1 y1 x2 y2\nek\n", "c.txt:2: a contour cannot start with an arc"},
      {"k1 e x1 y2\nend\n", "c.txt:2:1: expected 'ek', found 'end'"},
      {"k1 e\nek\n", "c.txt:2: contour 1 has no span"},
      {"k1 e x1 y1\nek\n", "c.txt:2: contour 1 has no span"},
      {"\nk1 e x1 y2\nx3 y4\n", "c.txt:3: the contour that begins on line 2 has no end 'ek'"},
      {"k1 e x1 y2\nx3 y4\nk2 e\n", "c.txt:3:1: expected a vertex (x, a, t), 'rem' or 'ek', found 'k2 e'"},
      {"k1 e x1 y2\nx20000000 y4\nek\n", "c.txt:2: the coordinate 2e+07 mm is not within 1e+07 mm"},
      {"k1 e x10 y0\nax0 y10 x1 y0\nek\n",
       "c.txt:2: the arc's centre is 9 mm from its start and 10.0499 mm from its end"},
      {"k1 e x10 y0\nax10 y0 x0 y0\nek\n", "c.txt:2: the arc is a full turn, which has to be two arcs"},
      {"k1 e x10 y0\nax10 y-0.01 x0 y0\nek\n", "c.txt:2: the arc is a full turn, which has to be two arcs"},
  };
  for (const Refusal& refusal : refusals) EXPECT_EQ(FaultOf(refusal.text), refusal.fault) << refusal.text;
}

TEST_F(TextReaderTest, RefusesFilesThatAreNotText) {
  EXPECT_EQ(FaultOf(std::string("k1 e\0x1", 7)),
            "c.txt:1: not a text file: the line has a control character");
  EXPECT_EQ(FaultOf("k1 e\n\x1b[2J\n"), "c.txt:2: not a text file: the line has a control character");
  EXPECT_EQ(FaultOf("k1 e\nrem" + std::string(5000, '-')), "c.txt:2: the line is longer than 4096 bytes");
}

TEST_F(TextReaderTest, RefusesMoreVerticesThanItHolds) {
  std::string text = "k1 e\n";
  for (std::size_t i = 0; i <= kMostVertices; ++i) text += i % 2 == 0 ? "x0 y0\n" : "x1 y0\n";
  EXPECT_EQ(FaultOf(text + "ek\n"), "c.txt:1000002: there are more than 1000000 vertices");
}

TEST_F(TextReaderTest, AStreamThatCannotBeReadIsAFault) {
  std::istringstream stream("k1 e x0 y0\nx1 y1\nek\n");
  stream.setstate(std::ios::badbit);
  const auto contours = ReadText(stream, "c.txt");
  ASSERT_FALSE(contours);
  EXPECT_EQ(contours.fault().Message(), "c.txt: cannot be read");
}

}  // namespace
}  // namespace vanzet::contour
