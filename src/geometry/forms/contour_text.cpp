#include <initializer_list>
#include <string_view>

#include "base/number_text.h"
#include "base/numbers.h"
#include "geometry/kurveex.h"

/// The text forms of a contour, docs/formats/geometry-text.md: the contour text, which can be read back, the
/// report for people, and the source code that builds the contour.
namespace geometry {
namespace {

constexpr double kMillimetresInMetre = 1000.0;
constexpr int kVertexDigits = 14;
constexpr std::size_t kLongestLine = 1024;

/// Writes the text, NULs included.
void Put(std::FILE* stream, const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stream);
}

std::string PointText(const Point& p) {
  return "x" + vanzet::GeneralText(p.x * kMillimetresInMetre, kVertexDigits) + " y" +
         vanzet::GeneralText(p.y * kMillimetresInMetre, kVertexDigits);
}

std::string VertexText(const spVertex& v) {
  if (v.type == LINEAR) return PointText(v.p) + "\n";
  return (v.type == ACW ? "a" : "t") + PointText(v.p) + " " + PointText(v.pc) + "\n";
}

/// The kinds of vertex lines by their first letter.
struct VertexLine {
  char letter;
  int type;
  std::string_view pattern;
};
constexpr VertexLine kVertexLines[] = {
    {'x', LINEAR, "x# y#"},
    {'t', CW, "tx# y# x# y#"},
    {'a', ACW, "ax# y# x# y#"},
};

/// Reads a line, without its end and the blanks and tabs before it; a longer line comes in pieces. False at
/// the end of the stream.
bool TakeLine(std::FILE* stream, std::string& line) {
  line.clear();
  int c = 0;
  while (line.size() < kLongestLine && (c = std::fgetc(stream)) != EOF && c != '\n' && c != '\r') {
    line += static_cast<char>(c);
  }
  line.erase(line.find_last_not_of(" \t") + 1);
  return c != EOF || !line.empty();
}

bool TakeNonEmptyLine(std::FILE* stream, std::string& line) {
  while (TakeLine(stream, line)) {
    if (!line.empty()) return true;
  }
  return false;
}

/// Reads numbers from a line as scanf does, up to the first character that does not fit; the rest of the
/// numbers stay as they were. In the pattern '#' is a real, '%' an integer that is skipped, a blank any white
/// space; every other character matches itself.
void Scan(std::string_view line, std::string_view pattern, std::initializer_list<double*> numbers) {
  const auto* number = numbers.begin();
  for (const char expected : pattern) {
    std::size_t used = 1;
    if (expected == ' ') {
      for (used = 0; used < line.size() && vanzet::IsWhiteSpace(line[used]);) ++used;
    } else if (expected == '#') {
      const auto real = vanzet::RealPrefix(line);
      if (!real) return;
      **number++ = real->value;
      used = real->used;
    } else if (expected == '%') {
      const auto integer = vanzet::IntegerPrefix(line);
      if (!integer) return;
      used = integer->used;
    } else if (!line.starts_with(expected)) {
      return;
    }
    line.remove_prefix(used);
  }
}

/// The words of the marks of an ID; only the first one that is set is written.
constexpr struct {
  std::uint32_t bit;
  const char* text;
} kMarks[] = {
    {UNMARKED, " (UNMARKED)"},
    {ROLL_AROUND, " (ROLL_AROUND)"},
    {INTERSECTION, " (INTERSECTION)"},
    {FULL_CIRCLE_KURVE, " (FULL_CIRCLE_KURVE)"},
};

std::string IdText(std::uint32_t ID) {
  const std::string number = " ID = " + std::to_string(IdNumber(ID));
  for (const auto& mark : kMarks) {
    if ((ID & mark.bit) != 0) return number + mark.text + "\n";
  }
  return number + "\n";
}

/// The number as "%-6.3g" writes it in the C locale.
std::string ShortText(double value) {
  constexpr int kDigits = 3;
  constexpr std::size_t kWidth = 6;
  std::string text = vanzet::GeneralText(value, kDigits);
  if (text.size() < kWidth) text.resize(kWidth, ' ');
  return text;
}

std::string ReportedPoint(const Point& p, const char* x = " x", const char* y = " y") {
  return x + ShortText(ToMm(p.x)) + y + ShortText(ToMm(p.y));
}

const char* ArcWord(int dir) {
  return dir == ACW ? "   ACW" : "    CW";
}

/// The blanks that lines have in the place of the centre of arcs.
constexpr const char* kVertexFill = "                          ";
constexpr const char* kSpanFill = "                       ";

std::string LengthCode(double length) {
  return "mm(" + vanzet::GeneralText(ToMm(length)) + ")";
}

std::string PointCode(const Point& p) {
  return "Point(" + LengthCode(p.x) + ", " + LengthCode(p.y) + ")";
}

std::string NumberCode(std::uint32_t ID) {
  return std::to_string(static_cast<std::int32_t>(ID));
}

std::string IdCode(std::uint32_t ID) {
  return (ID & ROLL_AROUND) != 0 ? "ROLL_AROUND | " + NumberCode(ID & ~ROLL_AROUND) : NumberCode(ID);
}

/// The vertex forms write the plain word, the span form one of four characters.
const char* TypeWord(int type, bool fourWide) {
  if (type == LINEAR) return fourWide ? "LIN " : "LINEAR";
  if (type == CW) return fourWide ? "CW  " : "CW";
  return fourWide ? "ACW " : "ACW";
}

std::string Opening(const std::string& name, const char* word) {
  return "\t" + name + ".Add(spVertex(" + word + ",\t";
}

std::string Closing(const std::string& ID, int number) {
  return ",\t" + ID + "));\t// vertex " + std::to_string(number) + "\n";
}

std::string SpanCode(const std::string& name, const Span& span, int number) {
  std::string code = Opening(name, TypeWord(span.dir, true)) + PointCode(span.p0) + ",\t";
  if (span.dir != LINEAR) code += PointCode(span.pc) + ",\t";
  code += PointCode(span.p1) + ",\t";
  if (span.dir != LINEAR) code += "rad(" + LengthCode(span.radius) + "),\t";
  return code + "len(" + LengthCode(span.length) + ")" + Closing(NumberCode(span.ID), number);
}

}  // namespace

void KurveEx::Write(std::FILE* stream, int number) const {
  Put(stream, "k" + std::to_string(number) + " e\n");
  Put(stream, "rem Number of Spans = " + std::to_string(SpanCount()) + (Closed() ? " (Closed)" : " (Open)") +
                  "\nrem Perim = " + vanzet::GeneralText(perim * kMillimetresInMetre) + " mm\n");
  if (Closed()) {
    Put(stream, "rem Area = " + vanzet::GeneralText(area * kMillimetresInMetre * kMillimetresInMetre) +
                    " sq.mm " + (Direction() == CW ? "(Clockwise)\n" : "(AntiClockwise)\n"));
  }
  spVertex v;
  for (int i = 0; Get(i, v); ++i) Put(stream, VertexText(v));
  Put(stream, "ek\n\n");
}

bool KurveEx::Read(std::FILE* stream) {
  std::string line;
  if (!TakeNonEmptyLine(stream, line)) return false;
  // Numbers that are missing keep the values of the line before.
  double x = 0;
  double y = 0;
  double xc = 0;
  double yc = 0;
  Scan(line, "k% e x# y#", {&x, &y});
  KurveEx read;
  read.Start(Point(mm(x), mm(y)));
  while (TakeNonEmptyLine(stream, line) && line.front() != 'e') {
    for (const VertexLine& kind : kVertexLines) {
      if (line.front() != kind.letter) continue;
      Scan(line, kind.pattern, {&x, &y, &xc, &yc});
      read.Add(kind.type, Point(mm(x), mm(y)), kind.type == LINEAR ? Point(0, 0) : Point(mm(xc), mm(yc)));
    }
  }
  *this = read;
  return true;
}

void Print(std::FILE* stream, const spVertex& v) {
  const std::string text = v.type == LINEAR
                               ? "LINEAR" + ReportedPoint(v.p) + kVertexFill
                               : ArcWord(v.type) + ReportedPoint(v.p) + ReportedPoint(v.pc, " xc", " yc") +
                                     " r" + ShortText(ToMm(Dist(v.pc, v.p)));
  Put(stream, text + IdText(v.ID));
}

void Print(std::FILE* stream, const Span& s) {
  const std::string ends = ReportedPoint(s.p0) + " to" + ReportedPoint(s.p1);
  const std::string text =
      s.dir == LINEAR ? "LINEAR" + ends + kSpanFill : ArcWord(s.dir) + ends + " Centre" + ReportedPoint(s.pc);
  Put(stream, text + IdText(s.ID));
}

void KurveEx::Print(std::FILE* stream) const {
  Put(stream, "# Number of Spans = " + std::to_string(SpanCount()) + (Closed() ? " (Closed)" : " (Open)") +
                  "\n# Perim = " + vanzet::GeneralText(ToMm(perim)) + " mm\n");
  if (Closed()) {
    // Metres are presumed here, and only here.
    Put(stream, "# Area = " + vanzet::GeneralText(area * kMillimetresInMetre * kMillimetresInMetre) +
                    " sq.mm " + (Direction() == CW ? "(Clockwise)\n" : "(AntiClockwise)\n"));
  }
  if (!start.ok) Put(stream, "Empty KurveEx\n");
  spVertex v;
  for (int i = 0; start.ok && Get(i, v); ++i) geometry::Print(stream, v);
  Put(stream, "# end\n\n");
}

void KurveEx::WriteSourceVertices(std::FILE* stream, const char* name) const {
  Put(stream, "// KurveEx output - vertex format\n");
  spVertex v;
  for (int i = 0; Get(i, v); ++i) {
    Put(stream, i == 0 ? std::string(name) + ".Start(" + PointCode(v.p) + ");\n"
                       : Opening(name, TypeWord(v.type, false)) + PointCode(v.p) + ",\t" + PointCode(v.pc) +
                             Closing(IdCode(v.ID), i));
  }
  Put(stream, "\n\n");
}

// Spans are numbered from 1 but read from index 0: the first is never written, and the last line is a default
// span. Tools that compare such listings rely on it.
void KurveEx::WriteSourceSpans(std::FILE* stream, const char* name) const {
  Put(stream, "// KurveEx output - span format\n");
  for (int i = 1; i <= SpanCount(); ++i) {
    Span span;
    Get(static_cast<std::size_t>(i), span);
    Put(stream, SpanCode(name, span, i));
  }
  Put(stream, "\n\n");
}

}  // namespace geometry
