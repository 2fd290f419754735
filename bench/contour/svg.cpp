#include <cmath>

#include "base/number_text.h"
#include "contour/drawing.h"
#include "contour/view.h"

namespace vanzet::contour {
namespace {

using geometry::Point;
using geometry::Span;
using Role = Drawing::Role;

constexpr const char* kMarkColour = "#c2185b";

/// In pixels.
constexpr double kArrowLength = 11, kArrowHalfWidth = 4.2, kShortestWithArrow = 34, kVertexRadius = 2.4,
                 kStartRadius = 4.5;
constexpr std::size_t kMostDots = 400;
constexpr int kDigits = 10;

std::string Text(double number) {
  return NumberText(number, kDigits);
}

std::string Text(const Point& point) {
  return Text(point.x) + " " + Text(point.y);
}

/// Writes a picture; lengths in the paths are millimetres, elsewhere pixels.
class SvgWriter {
 public:
  explicit SvgWriter(const Drawing& drawing) : drawing_(drawing), view_(drawing) {}

  std::string Write();

 private:
  void WriteAxes();
  void WriteLayer(const Drawing::Layer& layer);
  void WriteArrows(const Contour& contour);
  void WriteArrow(const Span& span);
  void WriteVertices(const Contour& contour);
  void WriteMarks();
  void WriteNumbers();
  std::string Pixels(double pixels) const { return Text(pixels / view_.scale()); }
  std::string Dot(const Point& point, double radius) const;
  static std::string Line(const Point& from, const Point& to);

  const Drawing& drawing_;
  View view_;
  std::string svg_;
};

/// A path in the coordinates of the contour. With y up, the positive sense of an arc is anticlockwise.
std::string PathOf(const Contour& contour) {
  std::string path = "M" + Text(contour.curve.start);
  for (const Span& span : contour.curve.spans) {
    if (span.dir == geometry::LINEAR) {
      path += " L" + Text(span.p1);
      continue;
    }
    const std::string radius = Text(span.radius);
    path += " A" + radius + " " + radius + " 0 " + (std::fabs(SweepOf(span)) > geometry::PI ? "1 " : "0 ") +
            (span.dir == geometry::ACW ? "1 " : "0 ") + Text(span.p1);
  }
  return contour.curve.Closed() ? path + " Z" : path;
}

std::string SvgWriter::Write() {
  const std::string width = Text(std::ceil(view_.width()));
  const std::string height = Text(std::ceil(view_.height()) + LegendHeight(drawing_));
  svg_ = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + width + "\" height=\"" + height +
         "\" viewBox=\"0 0 " + width + " " + height + "\">\n<rect width=\"" + width + "\" height=\"" +
         height + "\" fill=\"#ffffff\"/>\n<g transform=\"" + view_.Transform() +
         "\" fill=\"none\" stroke-linejoin=\"round\" stroke-linecap=\"round\">\n";
  WriteAxes();
  for (const Drawing::Layer& layer : drawing_.layers) WriteLayer(layer);
  WriteMarks();
  svg_ += "</g>\n";
  if (drawing_.numbers) WriteNumbers();
  svg_ += Legend(drawing_, std::ceil(view_.height()));
  return svg_ + "</svg>\n";
}

/// The axes, where they are seen: dash-dotted, as centre lines are.
void SvgWriter::WriteAxes() {
  const Point low = view_.low(), high = view_.high();
  svg_ += "<g class=\"axes\" stroke=\"#c3c9ce\" stroke-width=\"" + Pixels(1) + "\" stroke-dasharray=\"" +
          Pixels(12) + " " + Pixels(4) + " " + Pixels(2) + " " + Pixels(4) + "\">\n";
  if (low.y < 0 && high.y > 0) svg_ += Line({low.x, 0}, {high.x, 0});
  if (low.x < 0 && high.x > 0) svg_ += Line({0, low.y}, {0, high.y});
  svg_ += "</g>\n";
}

void SvgWriter::WriteLayer(const Drawing::Layer& layer) {
  const DrawingStyle& style = StyleOf(layer.role);
  svg_ += std::string("<g stroke=\"") + style.colour + "\" stroke-width=\"" + Pixels(style.width) + "\">\n";
  std::string closed;
  for (const Contour& contour : *layer.contours) {
    if (contour.curve.Closed()) closed += (closed.empty() ? "" : " ") + PathOf(contour);
  }
  if (layer.role == Role::kMain && !closed.empty()) {
    svg_ += std::string("<path class=\"fill\" fill=\"") + style.fill +
            "\" fill-rule=\"evenodd\" stroke=\"none\" d=\"" + closed + "\"/>\n";
  }
  for (const Contour& contour : *layer.contours) {
    svg_ += "<path class=\"contour\" d=\"" + PathOf(contour) + "\"/>\n";
  }
  svg_ += std::string("<g stroke=\"none\" fill=\"") + style.colour + "\">\n";
  for (const Contour& contour : *layer.contours) {
    if (style.hasArrows) WriteArrows(contour);
    if (style.hasArrows) WriteVertices(contour);
  }
  svg_ += "</g>\n</g>\n";
}

/// In the middle of every span that has room for one, and on the longest span in any case.
void SvgWriter::WriteArrows(const Contour& contour) {
  const Span* longest = nullptr;
  for (const Span& span : contour.curve.spans) {
    if (longest == nullptr || span.length > longest->length) longest = &span;
  }
  for (const Span& span : contour.curve.spans) {
    const bool hasRoom = span.length * view_.scale() >= kShortestWithArrow;
    if ((hasRoom || &span == longest) && !span.NullSpan) WriteArrow(span);
  }
}

void SvgWriter::WriteArrow(const Span& span) {
  const double unit = 1 / view_.scale();
  const geometry::Vector2d along = span.Tangent(0.5);
  const Point tip = span.AlongFraction(0.5) + along * (kArrowLength / 2 * unit);
  const Point back = tip + along * (-kArrowLength * unit);
  const geometry::Vector2d aside = along.LeftNormal() * (kArrowHalfWidth * unit);
  svg_ += "<path class=\"arrow\" d=\"M" + Text(tip) + " L" + Text(back + aside) + " L" +
          Text(back + aside * -1) + " Z\"/>\n";
}

void SvgWriter::WriteVertices(const Contour& contour) {
  if (contour.curve.spans.size() <= kMostDots) {
    for (const Span& span : contour.curve.spans) svg_ += Dot(span.p1, kVertexRadius);
  }
  svg_ += "<circle class=\"start\" cx=\"" + Text(contour.curve.start.x) + "\" cy=\"" +
          Text(contour.curve.start.y) + "\" r=\"" + Pixels(kStartRadius) + "\" fill=\"#ffffff\" stroke=\"" +
          "#2e7d32\" stroke-width=\"" + Pixels(2) + "\"/>\n";
}

void SvgWriter::WriteMarks() {
  constexpr double kArm = 6;
  svg_ += std::string("<g stroke=\"") + kMarkColour + "\" stroke-width=\"" + Pixels(1.6) + "\">\n";
  for (const Drawing::Link& link : drawing_.links) {
    svg_ +=
        "<g stroke-dasharray=\"" + Pixels(4) + " " + Pixels(4) + "\">" + Line(link.from, link.to) + "</g>\n";
  }
  for (const Drawing::Mark& mark : drawing_.marks) {
    const Point& p = mark.point;
    if (mark.kind == Drawing::Mark::Kind::kFound) {
      svg_ += std::string("<g fill=\"") + kMarkColour + "\">" + Dot(p, 4) + "</g>\n";
      continue;
    }
    const double arm = kArm / view_.scale();
    svg_ += Line({p.x - arm, p.y - arm}, {p.x + arm, p.y + arm});
    svg_ += Line({p.x - arm, p.y + arm}, {p.x + arm, p.y - arm});
  }
  svg_ += "</g>\n";
}

void SvgWriter::WriteNumbers() {
  svg_ += "<g font-family=\"sans-serif\" font-size=\"" + Text(kLabelHeight) +
          "\" fill=\"#333333\" text-anchor=\"middle\">\n";
  for (const Drawing::Layer& layer : drawing_.layers) {
    if (layer.role != Role::kMain) continue;
    for (const Label& label : VertexNumbers(*layer.contours, view_)) {
      svg_ += "<text x=\"" + DecimalText(label.middle.x, 2) + "\" y=\"" +
              DecimalText(label.middle.y + 0.36 * kLabelHeight, 2) + "\">" + label.text + "</text>\n";
    }
  }
  svg_ += "</g>\n";
}

std::string SvgWriter::Dot(const Point& point, double radius) const {
  return "<circle cx=\"" + Text(point.x) + "\" cy=\"" + Text(point.y) + "\" r=\"" + Pixels(radius) + "\"/>\n";
}

std::string SvgWriter::Line(const Point& from, const Point& to) {
  return "<path d=\"M" + Text(from) + " L" + Text(to) + "\"/>\n";
}

}  // namespace

std::string Svg(const Drawing& drawing) {
  return SvgWriter(drawing).Write();
}

std::string SvgToScale(const Contours& contours) {
  constexpr const char* kHairline = "0.1";
  // The library's boxes are larger by a nanometre, which is rounded away.
  const auto length = [](double value) { return ShortDecimalText(value, 5); };
  geometry::Box box;
  for (const Contour& contour : contours) box.Insert(contour.curve.Box());
  if (contours.empty()) box.Insert(Point(0, 0));
  const std::string width = length(box.max.x - box.min.x), height = length(box.max.y - box.min.y);
  std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + width + "mm\" height=\"" + height +
                    "mm\" viewBox=\"" + length(box.min.x) + " " + length(-box.max.y) + " " + width + " " +
                    height +
                    "\" overflow=\"visible\">\n<g transform=\"scale(1 -1)\" fill=\"none\" stroke=\"#000000\" "
                    "stroke-width=\"" +
                    kHairline + "\">\n";
  for (const Contour& contour : contours) svg += "<path d=\"" + PathOf(contour) + "\"/>\n";
  return svg + "</g>\n</svg>\n";
}

}  // namespace vanzet::contour
