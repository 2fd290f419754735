#include <cmath>

#include "base/number_text.h"
#include "contour/text_form.h"

namespace vanzet::contour {
namespace {

using geometry::KurveEx;

constexpr int kDigits = 14, kHeadDigits = 6;

/// What turning leaves of a zero is written as one.
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

std::string HeadText(const Contour& contour) {
  const KurveEx& curve = contour.curve;
  std::string text = "k" + std::to_string(contour.number) + " e\n";
  text += "rem Number of Spans = " + std::to_string(curve.SpanCount()) +
          (curve.Closed() ? " (Closed)\n" : " (Open)\n");
  text += "rem Perim = " + NumberText(curve.perim, kHeadDigits) + " mm\n";
  if (!curve.Closed()) return text;
  return text + "rem Area = " + NumberText(curve.area, kHeadDigits) + " sq.mm " +
         (curve.Direction() == geometry::CW ? "(Clockwise)\n" : "(AntiClockwise)\n");
}

}  // namespace

std::string TextForm(const Contours& contours) {
  std::string text;
  for (const Contour& contour : contours) {
    text += HeadText(contour);
    geometry::spVertex vertex;
    for (int v = 0; contour.curve.Get(v, vertex); ++v) text += VertexText(vertex);
    text += "ek\n\n";
  }
  return text;
}

}  // namespace vanzet::contour
