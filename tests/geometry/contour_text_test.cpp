#include <gmock/gmock.h>

#include "geometry/kurveex.h"
#include "geometry/support.h"
#include "geometry/text_support.h"

namespace geometry {
namespace {

using testing::FromStream;
using testing::kPi;
using testing::Streamed;
using testing::ThrownText;
using testing::UnitsGuard;

std::string Written(const KurveEx& k, int number = 1) {
  return Streamed([&](std::FILE* stream) { k.Write(stream, number); });
}

/// The contour that the text is read as; it had another content before.
KurveEx Read(const std::string& text) {
  KurveEx k;
  k.Start(Point(5, 5));
  k.Add(6, 6);
  k.Reverse(true);
  EXPECT_TRUE(FromStream(text, [&](std::FILE* stream) { return k.Read(stream); })) << text;
  return k;
}

/// Clockwise, of lines and one arc, in metres.
KurveEx Plate() {
  KurveEx k;
  k.Start(Point(0, 0));
  k.Add(0, 0.02);
  k.Add(0.05, 0.02);
  k.Add(CW, Point(0.05, 0), Point(0.05, 0.01));
  k.Add(0, 0);
  return k;
}

TEST(ContourText, WritesVerticesInMillimetres) {
  EXPECT_EQ(Written(Plate(), 7),
            "k7 e\nrem Number of Spans = 4 (Closed)\nrem Perim = 151.416 mm\n"
            "rem Area = 1157.08 sq.mm (Clockwise)\n"
            "x0 y0\nx0 y20\nx50 y20\ntx50 y0 x50 y10\nx0 y0\nek\n\n");
}

TEST(ContourText, AnOpenContourHasNoArea) {
  KurveEx k;
  k.Start(Point(1.0 / 3.0, -1));
  k.Add(ACW, Point(1.0 / 3.0 + 0.002, -1), Point(1.0 / 3.0 + 0.001, -1));
  EXPECT_EQ(Written(k, -2),
            "k-2 e\nrem Number of Spans = 1 (Open)\nrem Perim = 3.14159 mm\n"
            "x333.33333333333 y-1000\nax335.33333333333 y-1000 x334.33333333333 y-1000\nek\n\n");
}

TEST(ContourText, AReversedContourIsWrittenInReadingOrder) {
  KurveEx k = Plate();
  k.Reverse(true);
  EXPECT_EQ(Written(k),
            "k1 e\nrem Number of Spans = 4 (Closed)\nrem Perim = 151.416 mm\n"
            "rem Area = -1157.08 sq.mm (AntiClockwise)\n"
            "x0 y0\nx50 y0\nax50 y20 x50 y10\nx0 y20\nx0 y0\nek\n\n");
}

TEST(ContourText, AnEmptyContourIsAHeadAndAnEnd) {
  EXPECT_EQ(Written(KurveEx()), "k1 e\nrem Number of Spans = 0 (Open)\nrem Perim = 0 mm\nek\n\n");
}

TEST(ContourText, PresumesMetresWhateverTheUnitIs) {
  const UnitsGuard units(0);
  KurveEx k;
  k.Start(Point(1, 2));
  k.Add(4, 6);
  EXPECT_EQ(Written(k),
            "k1 e\nrem Number of Spans = 1 (Open)\nrem Perim = 5000 mm\nx1000 y2000\nx4000 y6000\n"
            "ek\n\n");
}

TEST(ContourText, IsReadInMillimetresIntoTheUnit) {
  const KurveEx metres = Read("k1 e x1 y2\nx4 y6\nek\n");
  EXPECT_EQ(metres.Start().x, 0.001);
  EXPECT_EQ(metres.End().y, 0.006);
  const UnitsGuard units(0);
  const KurveEx millimetres = Read("k1 e x1 y2\nx4 y6\nek\n");
  EXPECT_EQ(millimetres.Start().x, 1);
  EXPECT_EQ(millimetres.perim, 5);
  EXPECT_FALSE(millimetres.reversed) << "nothing is left of what it held";
  EXPECT_EQ(millimetres.SpanCount(), 1);
}

TEST(ContourText, EndAndThenCentreOfArcs) {
  const UnitsGuard units(0);
  const KurveEx k = Read("k1 e x0 y0\nax10 y0 x5 y0\ntx20 y0 x15 y0\nek\n");
  ASSERT_EQ(k.SpanCount(), 2);
  EXPECT_EQ(k.spans[0].dir, ACW);
  EXPECT_EQ(k.spans[0].pc.x, 5);
  EXPECT_EQ(k.spans[1].dir, CW);
  EXPECT_EQ(k.spans[1].pc.x, 15);
  EXPECT_NEAR(k.perim, 10 * kPi, 1e-9);
}

TEST(ContourText, WriterAndReaderDoNotMeetOnTheFirstVertex) {
  const KurveEx k = Plate();
  const KurveEx read = Read(Written(k));
  EXPECT_EQ(read.SpanCount(), 5) << "from the origin to the first vertex, and then the contour";
  EXPECT_TRUE(read.spans[0].NullSpan);
  EXPECT_NEAR(read.area, k.area, 1e-15);
}

TEST(ContourText, BlankLinesTrailingTabsAndOtherLinesHaveNoEffect) {
  const UnitsGuard units(0);
  const KurveEx plain = Read("k1 e x1 y2\nx4 y6\nx9 y9\nek\n");
  EXPECT_TRUE(Read("\n\n \t\nk1 e x1 y2\t \n\nrem x7 y7\nx4 y6\t\t\n  \nx9 y9 \nek\nx0 y0\n") == plain);
  EXPECT_TRUE(Read("k1 e x1 y2\r\nx4 y6\r\nx9 y9\r\nek\r\n") == plain);
  EXPECT_TRUE(Read("k1 e x1 y2\nhello\n x0 y0\nx4 y6\nx9 y9") == plain) << "and no end";
}

TEST(ContourText, NullSpansAreKept) {
  EXPECT_EQ(Read("k1 e x0 y0\nx0 y0\nx1 y0\nx1 y0\nek\n").SpanCount(), 3);
}

TEST(ContourText, TheHeadMayLackItsStart) {
  for (const char* head : {"k1 e", "k1", "kx e x5 y6", "start"}) {
    const KurveEx k = Read(std::string(head) + "\nx3 y4\nek\n");
    EXPECT_EQ(k.Start().x, 0) << head;
    EXPECT_EQ(k.Start().y, 0) << head;
    EXPECT_EQ(k.SpanCount(), 1) << head;
  }
  const UnitsGuard units(0);
  EXPECT_EQ(Read("k1 e x5\nek\n").Start().x, 5);
  EXPECT_EQ(Read("k 12 e x 5 y -6\nek\n").Start().y, -6);
}

TEST(ContourText, ALineThatIsCutShortKeepsWhatTheOneBeforeSaid) {
  const UnitsGuard units(0);
  const KurveEx k = Read("k1 e x1 y2\nx4\nxfour y6\nx5 y-7\nek\n");
  ASSERT_EQ(k.SpanCount(), 3);
  EXPECT_EQ(k.spans[0].p1.y, 2);
  EXPECT_EQ(k.spans[1].p1.x, 4);
  EXPECT_EQ(k.spans[1].p1.y, 2);
  EXPECT_EQ(k.spans[2].p1.y, -7);
}

TEST(ContourText, ALongLineIsTakenInPieces) {
  const UnitsGuard units(0);
  const std::string remark(1024, 'r');
  const KurveEx k = Read("k1 e x0 y0\n" + remark + "x1 y1\nx2 y2\nek\n");
  EXPECT_EQ(k.SpanCount(), 2) << "the second piece is a vertex";
}

TEST(ContourText, WithoutALineNothingIsRead) {
  for (const char* text : {"", "\n\n", " \t"}) {
    KurveEx k = Plate();
    EXPECT_FALSE(FromStream(text, [&](std::FILE* stream) { return k.Read(stream); }));
    EXPECT_TRUE(k == Plate());
  }
}

TEST(ContourText, AnInvalidArcLeavesTheContour) {
  const UnitsGuard units(0);
  KurveEx k = Plate();
  EXPECT_EQ(FromStream("k1 e x0 y0\nax10 y0 x3 y0\nek\n",
                       [&](std::FILE* stream) { return ThrownText([&] { k.Read(stream); }); }),
            L"Invalid Geometry - Radii mismatch - SetProperties");
  EXPECT_TRUE(k == Plate());
}

TEST(ContourReport, WritesVerticesInColumns) {
  const UnitsGuard units(0);
  KurveEx k;
  k.Start(Point(0, 0));
  k.Add(spVertex(LINEAR, Point(50, 0), Point(0, 0), ROLL_AROUND | 4));
  k.Add(spVertex(ACW, Point(50, 20), Point(50, 10), INTERSECTION));
  k.Add(spVertex(CW, Point(60, 10), Point(60, 20), FULL_CIRCLE_KURVE | 0xFFFFFF));
  EXPECT_EQ(Streamed([&](std::FILE* stream) { k.Print(stream); }),
            "# Number of Spans = 3 (Open)\n# Perim = 128.54 mm\n"
            "LINEAR x0      y0                                ID = 0\n"
            "LINEAR x50     y0                                ID = 4 (ROLL_AROUND)\n"
            "   ACW x50     y20     xc50     yc10     r10     ID = 0 (INTERSECTION)\n"
            "    CW x60     y10     xc60     yc20     r10     ID = -1 (FULL_CIRCLE_KURVE)\n"
            "# end\n\n");
}

TEST(ContourReport, ClosedAndEmptyContours) {
  EXPECT_THAT(Streamed([](std::FILE* stream) { Plate().Print(stream); }),
              ::testing::StartsWith("# Number of Spans = 4 (Closed)\n# Perim = 151.416 mm\n"
                                    "# Area = 1157.08 sq.mm (Clockwise)\n"));
  KurveEx back = Plate();
  back.Reverse(true);
  EXPECT_THAT(Streamed([&](std::FILE* stream) { back.Print(stream); }),
              ::testing::HasSubstr("# Area = -1157.08 sq.mm (AntiClockwise)\n"));
  EXPECT_EQ(Streamed([](std::FILE* stream) { KurveEx().Print(stream); }),
            "# Number of Spans = 0 (Open)\n# Perim = 0 mm\nEmpty KurveEx\n# end\n\n");
}

TEST(ContourReport, TheAreaPresumesMetres) {
  const UnitsGuard units(0);
  KurveEx k(Point(0, 0), 1, CW);
  EXPECT_THAT(Streamed([&](std::FILE* stream) { k.Print(stream); }),
              ::testing::HasSubstr("# Perim = 6.28319 mm\n# Area = 3.14159e+06 sq.mm (Clockwise)\n"));
}

TEST(ContourReport, SpansAreWrittenWithBothEnds) {
  const UnitsGuard units(1);
  const auto print = [](const Span& s) { return Streamed([&](std::FILE* stream) { Print(stream, s); }); };
  EXPECT_EQ(print(Span(Point(0, 0), Point(1, 0.125))),
            "LINEAR x0      y0      to x25.4   y3.17                          ID = 0 (UNMARKED)\n");
  EXPECT_EQ(print(Span(CW, Point(0, 1), Point(1, 0), Point(0, 0), 12)),
            "    CW x0      y25.4   to x25.4   y0      Centre x0      y0      ID = 12\n");
  EXPECT_EQ(print(Span(ACW, Point(1, 0), Point(0, 1), Point(0, 0), 0x00FFFFFE)),
            "   ACW x25.4   y0      to x0      y25.4   Centre x0      y0      ID = -2\n");
}

TEST(ContourReport, TheFirstMarkCounts) {
  const auto mark = [](std::uint32_t ID) {
    const auto text = Streamed([&](std::FILE* stream) { Print(stream, spVertex(LINEAR, {}, {}, ID)); });
    return text.substr(text.find("ID"));
  };
  EXPECT_EQ(mark(UNMARKED | ROLL_AROUND | 3), "ID = 3 (UNMARKED)\n");
  EXPECT_EQ(mark(ROLL_AROUND | INTERSECTION), "ID = 0 (ROLL_AROUND)\n");
  EXPECT_EQ(mark(INTERSECTION | FULL_CIRCLE_KURVE), "ID = 0 (INTERSECTION)\n");
  EXPECT_EQ(mark(5), "ID = 5\n");
}

TEST(ContourSource, SpellsOutVertices) {
  KurveEx k;
  k.Start(Point(0.001, 0));
  k.Add(spVertex(LINEAR, Point(0.05, 0), Point(0, 0), ROLL_AROUND | 4));
  k.Add(spVertex(ACW, Point(0.05, 0.02), Point(0.05, 0.01), 7));
  k.Add(spVertex(CW, Point(0.06, 0.01), Point(0.06, 0.02)));
  EXPECT_EQ(
      Streamed([&](std::FILE* stream) { k.WriteSourceVertices(stream, "part"); }),
      "// KurveEx output - vertex format\n"
      "part.Start(Point(mm(1), mm(0)));\n"
      "\tpart.Add(spVertex(LINEAR,\tPoint(mm(50), mm(0)),\tPoint(mm(0), mm(0)),\tROLL_AROUND | "
      "4));\t// vertex 1\n"
      "\tpart.Add(spVertex(ACW,\tPoint(mm(50), mm(20)),\tPoint(mm(50), mm(10)),\t7));\t// vertex 2\n"
      "\tpart.Add(spVertex(CW,\tPoint(mm(60), mm(10)),\tPoint(mm(60), mm(20)),\t268435456));\t// vertex "
      "3\n\n\n");
  EXPECT_EQ(Streamed([](std::FILE* stream) { KurveEx().WriteSourceVertices(stream, "k"); }),
            "// KurveEx output - vertex format\n\n\n");
}

TEST(ContourSource, TheFirstSpanIsLeftOutAndTheLastIsADefaultSpan) {
  KurveEx k;
  k.Start(Point(0, 0));
  k.Add(0.01, 0);
  k.Add(spVertex(ACW, Point(0.01, 0.02), Point(0.01, 0.01), ROLL_AROUND | 4));
  k.Add(spVertex(CW, Point(0.02, 0.01), Point(0.02, 0.02), 3));
  EXPECT_EQ(
      Streamed([&](std::FILE* stream) { k.WriteSourceSpans(stream, "k"); }),
      "// KurveEx output - span format\n"
      "\tk.Add(spVertex(ACW ,\tPoint(mm(10), mm(0)),\tPoint(mm(10), mm(10)),\tPoint(mm(10), "
      "mm(20)),\trad(mm(10)),\tlen(mm(31.4159)),\t536870916));\t// vertex 1\n"
      "\tk.Add(spVertex(CW  ,\tPoint(mm(10), mm(20)),\tPoint(mm(20), mm(20)),\tPoint(mm(20), "
      "mm(10)),\trad(mm(10)),\tlen(mm(47.1239)),\t3));\t// vertex 2\n"
      "\tk.Add(spVertex(LIN ,\tPoint(mm(0), mm(0)),\tPoint(mm(0), mm(0)),\tlen(mm(0)),\t268435456));\t// "
      "vertex 3\n\n\n");
  EXPECT_EQ(Streamed([](std::FILE* stream) { KurveEx().WriteSourceSpans(stream, "k"); }),
            "// KurveEx output - span format\n\n\n");
}

TEST(ContourText, AFullDiskDoesNoHarm) {
  std::FILE* const full = std::fopen("/dev/full", "w");
  ASSERT_NE(full, nullptr);
  Plate().Write(full, 1);
  Plate().Print(full);
  EXPECT_NE(std::fflush(full), 0) << "the stream reports it to its caller";
  std::fclose(full);
}

}  // namespace
}  // namespace geometry
