#include "contour/labels.h"

#include <algorithm>
#include <cmath>

namespace vanzet::contour {
namespace {

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

/// The places beside a point, the preferred ones first.
std::vector<Point> PlacesBeside(const Point& point, const std::string& text) {
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

/// The place that covers least; none when each lies on another label.
std::optional<Label> Placed(const std::string& text, const Point& vertex, const std::vector<Point>& samples,
                            const std::vector<Label>& labels) {
  std::optional<Label> best;
  std::ptrdiff_t least = 0;
  for (const Point& place : PlacesBeside(vertex, text)) {
    const Label label{text, place};
    if (std::ranges::any_of(labels, [&](const Label& other) { return Overlap(label, other); })) continue;
    const auto covered = std::ranges::count_if(samples, [&](const Point& p) { return Covers(label, p); });
    if (best && covered >= least) continue;
    best = label;
    least = covered;
  }
  return best;
}

}  // namespace

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
      const auto label = Placed(std::to_string(v), view.ToScreen(vertex.p), samples, labels);
      if (label) labels.push_back(*label);
    }
  }
  return labels;
}

}  // namespace vanzet::contour
