#include "geometry/forms/number_form.h"
#include "geometry/kurveex.h"

/// The source-code form: a contour spelled out as the calls that build it, in millimetres.
namespace geometry {
namespace {

std::string LengthCode(double length) {
  return "mm(" + General(ToMm(length)) + ")";
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

// Spans are numbered from 1 but fetched from 0: the first is never written, and the last line is a span that
// is none. Tools that compare such listings count on it.
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
