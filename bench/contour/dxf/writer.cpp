#include <cmath>

#include "base/number_text.h"
#include "contour/contour_file.h"

namespace vanzet::contour {
namespace {

using geometry::Point;
using geometry::RegionSpan;

/// As many as a number needs to come back as it was.
constexpr int kDigits = 17;

class DxfText {
 public:
  explicit DxfText(std::string layer) : layer_(std::move(layer)) {}

  void Group(int code, const std::string& value) { text_ += std::to_string(code) + "\n" + value + "\n"; }
  void Number(int code, double value) { Group(code, NumberText(value, kDigits)); }
  void Entity(const char* kind) {
    Group(0, kind);
    Group(8, layer_);
  }
  void At(const Point& point) {
    Number(10, point.x);
    Number(20, point.y);
    Number(30, 0);
  }
  const std::string& text() const { return text_; }

 private:
  std::string layer_, text_;
};

/// The tangent of a quarter of the angle; 0 for a line.
double BulgeOf(const RegionSpan& span) {
  const double radius = span.Radius();
  return radius == 0 ? 0 : span.dir * std::tan(span.Length() / radius / 4);
}

void AddVertex(DxfText& dxf, const Point& point, double bulge) {
  dxf.Entity("VERTEX");
  dxf.At(point);
  if (bulge != 0) dxf.Number(42, bulge);
}

/// Each vertex has the bulge of the span that begins there. A closed contour that ends exactly where it
/// starts has no vertex of its own there.
void AddPolyline(DxfText& dxf, const std::vector<RegionSpan>& spans) {
  const Point& start = spans.front().p0;
  const Point& end = spans.back().p1;
  const bool closes = spans.size() > 1 && start.x == end.x && start.y == end.y;
  dxf.Entity("POLYLINE");
  dxf.Group(66, "1");
  dxf.At({0, 0});
  dxf.Group(70, closes ? "1" : "0");
  for (const RegionSpan& span : spans) AddVertex(dxf, span.p0, BulgeOf(span));
  if (!closes) AddVertex(dxf, end, 0);
  dxf.Entity("SEQEND");
}

}  // namespace

std::string DxfForm(const Contours& contours, const std::string& layer) {
  constexpr const char* kMillimetres = "4";
  DxfText dxf(layer);
  dxf.Group(0, "SECTION");
  dxf.Group(2, "HEADER");
  dxf.Group(9, "$ACADVER");
  dxf.Group(1, "AC1009");
  dxf.Group(9, "$INSUNITS");
  dxf.Group(70, kMillimetres);
  dxf.Group(0, "ENDSEC");
  dxf.Group(0, "SECTION");
  dxf.Group(2, "ENTITIES");
  for (const Contour& contour : contours) AddPolyline(dxf, SpansOf(contour));
  dxf.Group(0, "ENDSEC");
  dxf.Group(0, "EOF");
  return dxf.text();
}

}  // namespace vanzet::contour
