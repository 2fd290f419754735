#include <algorithm>
#include <cmath>
#include <optional>

#include "base/number_text.h"
#include "base/numbers.h"
#include "base/quote.h"
#include "base/text_line_reader.h"
#include "contour/builder.h"
#include "contour/contour_file.h"

/// Reader and writer of the contour text form.
namespace vanzet::contour {
namespace {

using geometry::Point;

/// The beginning of a vertex line, and the letters before its numbers.
struct VertexLine {
  char letter;
  std::string_view mark;
  int direction;
  std::string_view numbers;
};
constexpr VertexLine kVertexLines[] = {
    {'x', "", geometry::LINEAR, "xy"},
    {'a', "a", geometry::ACW, "xyxy"},
    {'t', "t", geometry::CW, "xyxy"},
};

/// A position on one line, so that a fault can name the column.
class Cursor {
 public:
  explicit Cursor(std::string_view line) : line_(line) {}

  int Column() const { return static_cast<int>(at_) + 1; }
  std::string_view Rest() const { return line_.substr(at_); }
  void SkipBlanks() {
    while (at_ < line_.size() && (line_[at_] == ' ' || line_[at_] == '\t')) ++at_;
  }
  bool Take(std::string_view mark) {
    if (!Rest().starts_with(mark)) return false;
    at_ += mark.size();
    return true;
  }

  /// Reads the decimal number at the position, which ends at a blank or with the line.
  std::optional<double> TakeNumber() {
    SkipBlanks();
    const std::string_view word = Rest().substr(0, Rest().find_first_of(" \t"));
    if (word.find_first_not_of("+-.0123456789eE") != std::string_view::npos) return {};
    const auto number = WholeReal(word);
    if (number) at_ += word.size();
    return number;
  }

 private:
  std::string_view line_;
  std::size_t at_ = 0;
};

/// Reads the contours of a text one after the other.
class TextReader {
 public:
  TextReader(std::istream& text, const std::string& name) : lines_(text, name) {}

  Result<Contours> Read();

 private:
  Result<void> TakeLine(const std::string& line);
  Result<void> TakeHead(Cursor cursor);
  Result<void> TakeVertex(Cursor cursor, const VertexLine& kind);
  Result<void> TakeEnd();
  Result<std::vector<double>> TakeNumbers(Cursor& cursor, std::string_view letters) const;

  TextLineReader lines_;
  Contours contours_;
  Builder builder_;
  std::optional<int> number_;  ///< of the contour that is being read
  int headLine_ = 0;
  std::size_t vertices_ = 0;
};

Result<Contours> TextReader::Read() {
  for (std::string line;;) {
    VANZET_TRY(const bool more, lines_.Next(line));
    if (!more) break;
    VANZET_DO(TakeLine(line));
  }
  if (number_) {
    return lines_.At("the contour that begins on line " + std::to_string(headLine_) + " has no end 'ek'");
  }
  if (contours_.empty()) return lines_.AtLine(0, "has no contour");
  return std::move(contours_);
}

Result<void> TextReader::TakeLine(const std::string& line) {
  Cursor cursor(line);
  cursor.SkipBlanks();
  if (cursor.Rest().empty() || cursor.Rest().starts_with("rem")) return {};
  if (!number_) return TakeHead(cursor);
  if (cursor.Rest().starts_with('e')) {
    const int column = cursor.Column();
    const bool whole = cursor.Take("ek");
    cursor.SkipBlanks();
    return whole && cursor.Rest().empty() ? TakeEnd()
                                          : lines_.At("expected 'ek', found " + Quoted(line), column);
  }
  const auto* kind = std::ranges::find(kVertexLines, cursor.Rest().front(), &VertexLine::letter);
  if (kind != std::end(kVertexLines)) return TakeVertex(cursor, *kind);
  return lines_.At("expected a vertex (x, a, t), 'rem' or 'ek', found " + Quoted(cursor.Rest()),
                   cursor.Column());
}

Result<void> TextReader::TakeHead(Cursor cursor) {
  const auto expected = [&] {
    return lines_.At("expected the start of a contour like 'k1 e', found " + Quoted(cursor.Rest()),
                     cursor.Column());
  };
  if (!cursor.Take("k")) return expected();
  const auto number = IntegerPrefix(cursor.Rest());
  if (!number) return expected();
  cursor.Take(cursor.Rest().substr(0, number->used));
  cursor.SkipBlanks();
  if (!cursor.Take("e")) return expected();
  cursor.SkipBlanks();
  number_ = number->value;
  headLine_ = lines_.LineNumber();
  return cursor.Rest().empty() ? Result<void>() : TakeVertex(cursor, kVertexLines[0]);
}

Result<void> TextReader::TakeVertex(Cursor cursor, const VertexLine& kind) {
  if (++vertices_ > kMostVertices) {
    return lines_.At("there are more than " + std::to_string(kMostVertices) + " vertices");
  }
  cursor.Take(kind.mark);
  VANZET_TRY(const std::vector<double> n, TakeNumbers(cursor, kind.numbers));
  const bool isArc = kind.direction != geometry::LINEAR;
  if (!builder_.IsStarted() && isArc) return lines_.At("a contour cannot start with an arc");
  const Point end(n[0], n[1]);
  const Result<void> added = !builder_.IsStarted() ? builder_.Start(end)
                             : isArc               ? builder_.ArcTo(kind.direction, end, Point(n[2], n[3]))
                                                   : builder_.LineTo(end);
  if (!added) return lines_.At(added.fault());
  return {};
}

Result<std::vector<double>> TextReader::TakeNumbers(Cursor& cursor, std::string_view letters) const {
  std::vector<double> numbers;
  for (const char letter : letters) {
    cursor.SkipBlanks();
    if (!cursor.Take(std::string_view(&letter, 1))) {
      return lines_.At(std::string("expected '") + letter + "' and a number, found " + Quoted(cursor.Rest()),
                       cursor.Column());
    }
    const auto number = cursor.TakeNumber();
    if (!number) return lines_.At("expected a number, found " + Quoted(cursor.Rest()), cursor.Column());
    numbers.push_back(*number);
  }
  cursor.SkipBlanks();
  if (cursor.Rest().empty()) return numbers;
  return lines_.At("expected the end of the line, found " + Quoted(cursor.Rest()), cursor.Column());
}

Result<void> TextReader::TakeEnd() {
  if (!builder_.HasSpans()) return lines_.At("contour " + std::to_string(*number_) + " has no span");
  contours_.push_back(builder_.Take(*number_));
  number_.reset();
  return {};
}

using geometry::KurveEx;

constexpr int kDigits = 14, kHeadDigits = 6;

/// Writes as 0 what rounding has left of a zero.
std::string Coordinate(double value) {
  constexpr double kNothing = 1e-12;
  return NumberText(std::fabs(value) < kNothing ? 0 : value, kDigits);
}

std::string PointText(const geometry::Point& point) {
  return "x" + Coordinate(point.x) + " y" + Coordinate(point.y);
}

std::string VertexText(const geometry::spVertex& vertex) {
  if (vertex.type == geometry::LINEAR) return PointText(vertex.p) + "\n";
  return (vertex.type == geometry::ACW ? "a" : "t") + PointText(vertex.p) + " " + PointText(vertex.pc) + "\n";
}

std::vector<geometry::spVertex> VerticesOf(const Contour& contour) {
  const std::vector<geometry::RegionSpan> spans = SpansOf(contour);
  std::vector<geometry::spVertex> vertices = {{geometry::LINEAR, spans.front().p0, {}}};
  for (const geometry::RegionSpan& span : spans) vertices.emplace_back(span.dir, span.p1, span.pc);
  return vertices;
}

/// The figures of the head; the area is positive when clockwise.
struct Head {
  std::size_t spans;
  double perimeter, area;
};

Head HeadOf(const Contour& contour) {
  const KurveEx& curve = contour.curve;
  if (contour.drawn.empty()) return {curve.spans.size(), curve.perim, curve.area};
  const geometry::RegionLoop loop{contour.drawn};
  return {loop.spans.size(), loop.Perimeter(), -loop.Area()};
}

std::string HeadText(const Contour& contour) {
  const Head head = HeadOf(contour);
  const bool isClosed = contour.curve.Closed();
  std::string text = "k" + std::to_string(contour.number) + " e\n";
  text += "rem Number of Spans = " + std::to_string(head.spans) + (isClosed ? " (Closed)\n" : " (Open)\n");
  text += "rem Perim = " + NumberText(head.perimeter, kHeadDigits) + " mm\n";
  if (!isClosed) return text;
  return text + "rem Area = " + NumberText(head.area, kHeadDigits) + " sq.mm " +
         (head.area > 0 ? "(Clockwise)\n" : "(AntiClockwise)\n");
}

}  // namespace

Result<Contours> ReadText(std::istream& text, const std::string& name) {
  return TextReader(text, name).Read();
}

std::string TextForm(const Contours& contours) {
  std::string text;
  for (const Contour& contour : contours) {
    text += HeadText(contour);
    for (const geometry::spVertex& vertex : VerticesOf(contour)) text += VertexText(vertex);
    text += "ek\n\n";
  }
  return text;
}

}  // namespace vanzet::contour
