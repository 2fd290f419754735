#include <initializer_list>
#include <string_view>

#include "base/numbers.h"
#include "geometry/forms/number_form.h"
#include "geometry/kurveex.h"

/// The contour text form, docs/formats/geometry-text.md. Its writer and its reader differ in the first
/// vertex, and in the unit: the writer takes the library's unit for metres, the reader asks for it.
namespace geometry {
namespace {

constexpr double kMillimetresInMetre = 1000.0;
constexpr int kVertexDigits = 14;
constexpr std::size_t kLongestLine = 1024;

std::string PointText(const Point& p) {
  return "x" + General(p.x * kMillimetresInMetre, kVertexDigits) + " y" +
         General(p.y * kMillimetresInMetre, kVertexDigits);
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

/// Takes a line, without its end and the blanks and tabs before that; a longer one comes in pieces. False at
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

/// Takes numbers out of a line as scanf does, up to the first character that does not fit; the rest of the
/// numbers stay as they were. In the pattern '#' is a real, '%' an integer that is passed over, a blank any
/// white space; all else stands for itself.
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

}  // namespace

void KurveEx::Write(std::FILE* stream, int number) const {
  Put(stream, "k" + std::to_string(number) + " e\n");
  Put(stream, "rem Number of Spans = " + std::to_string(SpanCount()) + (Closed() ? " (Closed)" : " (Open)") +
                  "\nrem Perim = " + General(perim * kMillimetresInMetre) + " mm\n");
  if (Closed()) {
    Put(stream, "rem Area = " + General(area * kMillimetresInMetre * kMillimetresInMetre) + " sq.mm " +
                    (Direction() == CW ? "(Clockwise)\n" : "(AntiClockwise)\n"));
  }
  spVertex v;
  for (int i = 0; Get(i, v); ++i) Put(stream, VertexText(v));
  Put(stream, "ek\n\n");
}

bool KurveEx::Read(std::FILE* stream) {
  std::string line;
  if (!TakeNonEmptyLine(stream, line)) return false;
  // What a line does not tell is as the line before left it.
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

}  // namespace geometry
