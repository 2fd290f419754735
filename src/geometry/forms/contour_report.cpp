#include "geometry/forms/number_form.h"
#include "geometry/kurveex.h"

/// The report form: contours, vertices and spans for people, in millimetres.
namespace geometry {
namespace {

/// The first that is set tells.
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

std::string PointText(const Point& p, const char* x = " x", const char* y = " y") {
  return x + Short(ToMm(p.x)) + y + Short(ToMm(p.y));
}

const char* ArcWord(int dir) {
  return dir == ACW ? "   ACW" : "    CW";
}

/// What lines have where arcs have their centre.
constexpr const char* kVertexFill = "                          ";
constexpr const char* kSpanFill = "                       ";

}  // namespace

void Print(std::FILE* stream, const spVertex& v) {
  const std::string text = v.type == LINEAR
                               ? "LINEAR" + PointText(v.p) + kVertexFill
                               : ArcWord(v.type) + PointText(v.p) + PointText(v.pc, " xc", " yc") + " r" +
                                     Short(ToMm(Dist(v.pc, v.p)));
  Put(stream, text + IdText(v.ID));
}

void Print(std::FILE* stream, const Span& s) {
  const std::string ends = PointText(s.p0) + " to" + PointText(s.p1);
  const std::string text =
      s.dir == LINEAR ? "LINEAR" + ends + kSpanFill : ArcWord(s.dir) + ends + " Centre" + PointText(s.pc);
  Put(stream, text + IdText(s.ID));
}

void KurveEx::Print(std::FILE* stream) const {
  constexpr double kMillimetresInMetre = 1000.0;
  Put(stream, "# Number of Spans = " + std::to_string(SpanCount()) + (Closed() ? " (Closed)" : " (Open)") +
                  "\n# Perim = " + General(ToMm(perim)) + " mm\n");
  if (Closed()) {
    // Metres are presumed here, and only here.
    Put(stream, "# Area = " + General(area * kMillimetresInMetre * kMillimetresInMetre) + " sq.mm " +
                    (Direction() == CW ? "(Clockwise)\n" : "(AntiClockwise)\n"));
  }
  if (!start.ok) Put(stream, "Empty KurveEx\n");
  spVertex v;
  for (int i = 0; start.ok && Get(i, v); ++i) geometry::Print(stream, v);
  Put(stream, "# end\n\n");
}

}  // namespace geometry
