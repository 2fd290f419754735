#include "drawing_fixture.h"
#include "support/golden.h"

namespace vanzet::drawing {
namespace {

constexpr const char* kHead = "drawing 1\nlayer black solid 0\n";

std::string MessageOf(const std::string& text) {
  const auto read = ReadText(text);
  return read ? "read" : read.fault().Message();
}

/// A drawing with one of everything.
Drawing Everything() {
  Board board;
  EXPECT_TRUE(board.BeginLayer("Billet & bore", {FindColour("magenta"), FindLineStyle("dashdot")}));
  EXPECT_TRUE(board.PutLine(-100, geometry::CLine(geometry::Point(0.1, 0), geometry::Point(1, 2))));
  board.window = Window::kConstruction;
  EXPECT_TRUE(board.CreateFigure("A figure"));
  EXPECT_TRUE(board.Append("A figure", Square(1.0 / 3)));
  EXPECT_TRUE(board.Insert("A figure", {0, -1, 1, 0, -12.5, 1e-7}));
  EXPECT_TRUE(board.CreateFigure("empty"));
  board.EndLayer();
  geometry::Kurve arcs(geometry::Point(0, 0), 2, geometry::ACW);
  arcs.Add(geometry::CW, {4, 0}, {3, 0});
  EXPECT_TRUE(board.PutContour(30000, arcs));
  return board.drawing();
}

TEST(DrawingText, IsReadBackToTheLastBit) {
  const std::string text = DrawingText(Everything());
  EXPECT_GOLDEN(text, "drawing/everything.txt");
  const auto read = ReadText(text);
  ASSERT_TRUE(read) << read.fault().Message();
  EXPECT_EQ(DrawingText(*read), text);
}

TEST(DrawingText, OfAnEmptyDrawingHasTheFirstLayer) {
  std::string empty(kHead);
  empty += "end 1\n";
  EXPECT_EQ(DrawingText(Drawing()), empty);
  EXPECT_TRUE(ReadText(DrawingText(Drawing())));
}

TEST(DrawingText, CutShortAnywhereIsRefused) {
  const std::string text = DrawingText(Everything());
  for (std::size_t length = 0; length + 1 < text.size(); ++length) {
    EXPECT_FALSE(ReadText(text.substr(0, length))) << length;
  }
}

TEST(DrawingText, ThatIsWrongIsReportedWithItsLine) {
  struct Case {
    std::string text;
    const char* message;
  };
  const std::string head = kHead;
  for (const auto& [text, message] : std::initializer_list<Case>{
           {"", "d.txt: not a drawing: expected 'drawing 1'"},
           {"drawing 2\n", "d.txt:1: belongs to another version: expected 'drawing 1'"},
           {"k1 e\n", "d.txt:1: not a drawing: expected 'drawing 1'"},
           {"drawing 1\nend 0\n", "d.txt:2: layer 0 is missing"},
           {head, "d.txt:2: is cut short: expected 'end'"},
           {head + "end 5\n", "d.txt:3: expected 'end 1', the number of parts"},
           {head + "end 1\nx\n", "d.txt:4: unexpected text after 'end'"},
           {head + "rubbish\n",
            "d.txt:3: expected a layer, figure, stroke, insert, contour, line or 'end', found 'rubbish'"},
           {head + "layer pink solid L\n",
            "d.txt:3: expected black, blue, brown, cyan, green, grey, magenta, orange, red, violet or "
            "yellow, "
            "found 'pink'"},
           {head + "layer red wavy L\n", "d.txt:3: expected solid, dash, dashdot or dot, found 'wavy'"},
           {head + "layer black solid 0\n", "d.txt:3: layer '0' is listed twice"},
           {head + "figure F\nfigure F\n", "d.txt:4: figure 'F' is listed twice"},
           {head + "stroke black solid 0\n", "d.txt:3: a stroke must follow a figure"},
           {head + "insert display 1 0 0 1 0 0\n", "d.txt:3: an insert must follow a figure"},
           {head + "figure F\nstroke black solid L\n", "d.txt:4: layer 'L' does not exist"},
           {head + "figure F\nstroke black solid 0\nx1 y1\n", "d.txt:5: is cut short: expected 'ek'"},
           {head + "figure F\nstroke black solid 0\nx1 y1\nek\n", "d.txt:6: the contour has no length"},
           {head + "figure F\nstroke black solid 0\nax1 y1 x0 y0\n",
            "d.txt:5: a contour cannot start with an arc"},
           {head + "figure F\nstroke black solid 0\nx1 y1\nx1 y1\n",
            "d.txt:6: the vertex is at the place of the one before it"},
           {head + "figure F\nstroke black solid 0\nx1 yz\n",
            "d.txt:5: expected 'y' and a number within 1e+07, found 'yz'"},
           {head + "figure F\nstroke black solid 0\nx1 y2e7\n",
            "d.txt:5: expected 'y' and a number within 1e+07, found 'y2e7'"},
           {head + "figure F\nstroke black solid 0\nx1 y1 z\n",
            "d.txt:5: expected the end of the line, found 'z'"},
           {head + "figure F\nstroke black solid 0\nx0 y0\nax5 y0 x0 y0\nek\n",
            "d.txt:7: the geometry refuses this: Invalid Geometry - Radii mismatch - SetProperties"},
           {head + "figure F\ninsert display 2 0 0 1 0 0\n", "d.txt:4: the placement does not keep lengths"},
           {head + "figure F\ninsert screen 1 0 0 1 0 0\n",
            "d.txt:4: expected 'display' or 'construction', found 'screen'"},
           {head + "contour x display black solid 0\n", "d.txt:3: expected an integer, found 'x'"},
           {head + "line 1 0 0 2 0 black solid 0\n", "d.txt:3: the direction's length is not 1"},
           {head + "line 1 0 0 1 0 black solid 0\nline 1 0 0 1 0 black solid 0\n",
            "d.txt:4: line 1 in layer '0' is listed twice"},
           {head + "layer black solid \x01\n", "d.txt:3: not a text file: the line has a control character"},
       }) {
    EXPECT_EQ(MessageOf(text), message) << text;
  }
}

TEST(DrawingText, ContoursOfOneNumberAreRefused) {
  const std::string contour = "contour 1 display black solid 0\nx0 y0\nx1 y0\nek\n";
  EXPECT_EQ(MessageOf(kHead + contour + contour), "d.txt:10: contour 1 is listed twice");
}

}  // namespace
}  // namespace vanzet::drawing
