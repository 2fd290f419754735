#include "contour/view.h"

#include <algorithm>
#include <cmath>

#include "base/number_text.h"

namespace vanzet::contour {
namespace {

using geometry::Point;

/// In pixels; the margin has room for arrows, labels and marks at the edge.
constexpr double kMargin = 36, kLargestWidth = 640, kLargestHeight = 460, kSmallestWidth = 160;

/// Of a drawing that is a single point, in millimetres.
constexpr double kSmallestExtent = 1e-3;
constexpr int kDigits = 12;

geometry::Box BoxOf(const Drawing& drawing) {
  geometry::Box box;
  for (const Drawing::Layer& layer : drawing.layers) {
    for (const Contour& contour : *layer.contours) box.Insert(contour.curve.Box());
  }
  for (const Drawing::Mark& mark : drawing.marks) box.Insert(mark.point);
  return box;
}

using geometry::Point;

constexpr int kMostNumbers = 1000;
constexpr double kDigitWidth = 7;

/// Half the width and height of a text.
Point HalfSize(const std::string& text) {
  return {static_cast<double>(text.size()) * kDigitWidth / 2 + 1, kLabelHeight / 2};
}

bool Overlap(const Label& a, const Label& b) {
  const Point sizeA = HalfSize(a.text), sizeB = HalfSize(b.text);
  return std::fabs(a.middle.x - b.middle.x) < sizeA.x + sizeB.x &&
         std::fabs(a.middle.y - b.middle.y) < sizeA.y + sizeB.y;
}

bool Covers(const Label& label, const Point& point) {
  const Point size = HalfSize(label.text);
  return std::fabs(label.middle.x - point.x) < size.x + 1 && std::fabs(label.middle.y - point.y) < size.y + 1;
}

/// Points of the contours on the screen, some pixels apart, and of the rings about their starts.
std::vector<Point> Samples(const Contours& contours, const View& view) {
  constexpr double kStep = 3, kStartRing = 5.5;
  constexpr int kMostSteps = 400;
  std::vector<Point> samples;
  for (const Contour& contour : contours) {
    for (int i = 0; i < 8; ++i)
      samples.emplace_back(view.ToScreen(contour.curve.start), kStartRing, i * 45.0);
    for (const geometry::Span& span : contour.curve.spans) {
      const int steps =
          static_cast<int>(std::min<double>(kMostSteps, span.length * view.scale() / kStep)) + 1;
      for (int i = 0; i <= steps; ++i) {
        samples.push_back(view.ToScreen(span.AlongFraction(static_cast<double>(i) / steps)));
      }
    }
  }
  return samples;
}

/// The places next to a point, the preferred ones first.
std::vector<Point> PlacesNextTo(const Point& point, const std::string& text) {
  constexpr double kDirections[][2] = {{1, -1}, {-1, -1}, {1, 1}, {-1, 1}, {0, -1}, {0, 1}, {1, 0}, {-1, 0}};
  const Point size = HalfSize(text);
  std::vector<Point> places;
  for (const double gap : {6.0, 10.0, 15.0}) {
    for (const auto& [x, y] : kDirections) {
      places.emplace_back(point.x + x * (size.x + gap), point.y + y * (size.y + gap * 0.6));
    }
  }
  return places;
}

/// The place that covers least; none when every place overlaps another label.
std::optional<Label> PlaceLabel(const std::string& text, const Point& vertex,
                                const std::vector<Point>& samples, const std::vector<Label>& labels) {
  std::optional<Label> best;
  std::ptrdiff_t least = 0;
  for (const Point& place : PlacesNextTo(vertex, text)) {
    const Label label{text, place};
    if (std::ranges::any_of(labels, [&](const Label& other) { return Overlap(label, other); })) continue;
    const auto covered = std::ranges::count_if(samples, [&](const Point& p) { return Covers(label, p); });
    if (best && covered >= least) continue;
    best = label;
    least = covered;
  }
  return best;
}

// clang-format off
constexpr DrawingStyle kStyles[] = {
    {"#1f4e79", "#dce8f3", 2,   true },  // main
    {"#b5541c", "none",    2,   true },  // other
    {"#9aa3ab", "none",    1.2, false},  // underlay
};
// clang-format on

/// In pixels.
constexpr double kRow = 18, kBelow = 8, kLeft = 14, kLine = 26, kGap = 8, kTextHeight = 12;

std::vector<const Drawing::Layer*> NamedLayers(const Drawing& drawing) {
  std::vector<const Drawing::Layer*> named;
  for (const Drawing::Layer& layer : drawing.layers) {
    if (!layer.name.empty() && !layer.contours->empty()) named.push_back(&layer);
  }
  if (named.size() < 2) named.clear();
  return named;
}

std::string Row(const Drawing::Layer& layer, double middle) {
  const DrawingStyle& style = StyleOf(layer.role);
  const std::string y = NumberText(middle);
  return "<path d=\"M" + NumberText(kLeft) + " " + y + " h" + NumberText(kLine) + "\" stroke=\"" +
         style.colour + "\" stroke-width=\"" + NumberText(style.width) + "\"/>\n<text x=\"" +
         NumberText(kLeft + kLine + kGap) + "\" y=\"" + NumberText(middle + 0.36 * kTextHeight) + "\">" +
         layer.name + "</text>\n";
}

}  // namespace

View::View(const Drawing& drawing) : box_(BoxOf(drawing)) {
  const double width = std::max(box_.Width(), kSmallestExtent);
  const double height = std::max(box_.Height(), kSmallestExtent);
  scale_ = std::min(kLargestWidth / width, kLargestHeight / height);
  width_ = std::max(scale_ * width, kSmallestWidth) + 2 * kMargin;
  height_ = scale_ * height + 2 * kMargin;
}

Point View::ToScreen(const Point& point) const {
  const Point middle = box_.Mid();
  return {width_ / 2 + scale_ * (point.x - middle.x), height_ / 2 - scale_ * (point.y - middle.y)};
}

std::string View::Transform() const {
  const Point origin = ToScreen({0, 0});
  const std::string scale = NumberText(scale_, kDigits);
  return "matrix(" + scale + " 0 0 -" + scale + " " + NumberText(origin.x, kDigits) + " " +
         NumberText(origin.y, kDigits) + ")";
}

Point View::low() const {
  const Point middle = box_.Mid();
  return {middle.x - width_ / scale_ / 2, middle.y - height_ / scale_ / 2};
}

Point View::high() const {
  const Point middle = box_.Mid();
  return {middle.x + width_ / scale_ / 2, middle.y + height_ / scale_ / 2};
}

std::vector<Label> VertexNumbers(const Contours& contours, const View& view) {
  int vertices = 0;
  for (const Contour& contour : contours) vertices += contour.curve.SpanCount() + 1;
  if (vertices > kMostNumbers) return {};
  const std::vector<Point> samples = Samples(contours, view);
  std::vector<Label> labels;
  for (const Contour& contour : contours) {
    // On a closed contour the last vertex is the first one again.
    const int count = contour.curve.SpanCount() + (contour.curve.Closed() ? 0 : 1);
    for (int v = 0; v < count; ++v) {
      geometry::spVertex vertex;
      contour.curve.Get(v, vertex);
      const auto label = PlaceLabel(std::to_string(v), view.ToScreen(vertex.p), samples, labels);
      if (label) labels.push_back(*label);
    }
  }
  return labels;
}

const DrawingStyle& StyleOf(Drawing::Role role) {
  return kStyles[static_cast<int>(role)];
}

double LegendHeight(const Drawing& drawing) {
  const std::size_t rows = NamedLayers(drawing).size();
  return rows == 0 ? 0 : static_cast<double>(rows) * kRow + kBelow;
}

std::string Legend(const Drawing& drawing, double top) {
  const auto named = NamedLayers(drawing);
  if (named.empty()) return "";
  std::string text = "<g class=\"legend\" font-family=\"sans-serif\" font-size=\"" + NumberText(kTextHeight) +
                     "\" fill=\"#333333\">\n";
  double middle = top + kRow / 2;
  for (const Drawing::Layer* const layer : named) {
    text += Row(*layer, middle);
    middle += kRow;
  }
  return text + "</g>\n";
}

}  // namespace vanzet::contour
