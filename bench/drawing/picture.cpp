#include "drawing/picture.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "base/near_words.h"
#include "base/xml_text.h"
#include "drawing/picture_view.h"
#include "drawing/shown.h"

namespace vanzet::drawing {
namespace {

using geometry::Kurve;
using geometry::Point;
using geometry::Span;

/// In pixels.
constexpr double kStrokeWidth = 1.6, kAxisWidth = 1;
constexpr const char* kAxisColour = "#9aa3ab";
constexpr double kAxisDashes[] = {14, 4, 3, 4};
/// Closed contours are filled with a light tint of their colour.
constexpr const char* kFillOpacity = "0.08";

std::string Text(const Point& point) {
  return NumberText(point.x) + " " + NumberText(point.y);
}

/// With y up, the positive sense of an arc is anticlockwise.
std::string PathOf(const Kurve& curve) {
  std::string path;
  for (int i = 1; i <= curve.SpanCount(); ++i) {
    Span span;
    curve.Get(i, span, true);
    if (i == 1) path = "M" + Text(span.p0);
    if (span.dir == geometry::LINEAR) {
      path += " L" + Text(span.p1);
      continue;
    }
    const std::string radius = NumberText(span.radius);
    const bool isLong = std::fabs(SweepOf(span)) > geometry::PI;
    path += " A" + radius + " " + radius + " 0 " + (isLong ? "1 " : "0 ") +
            (span.dir == geometry::ACW ? "1 " : "0 ") + Text(span.p1);
  }
  return curve.Closed() ? path + " Z" : path;
}

/// Writes a picture; lengths in the paths are millimetres.
class Writer {
 public:
  explicit Writer(const PictureView& view) : view_(view) {}

  std::string Write(const ShownLayers& groups) {
    const std::string width = std::to_string(view_.width()), height = std::to_string(view_.height());
    svg_ = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + width + "\" height=\"" + height +
           "\" viewBox=\"0 0 " + width + " " + height + "\">\n<rect width=\"" + width + "\" height=\"" +
           height + "\" fill=\"#ffffff\"/>\n<g transform=\"" + view_.Transform() +
           "\" fill=\"none\" stroke-linejoin=\"round\" stroke-linecap=\"round\">\n";
    WriteAxis();
    for (const auto& [layer, ofLayer] : groups) WriteLayer(layer, ofLayer);
    return svg_ + "</g>\n</svg>\n";
  }

 private:
  /// The spindle's axis, dash-dotted, where it is seen.
  void WriteAxis() {
    geometry::CLine axis(Point(0, 0), 1, 0, true);
    const auto part = view_.VisiblePartOf(axis);
    if (!part) return;
    svg_ += std::string("<path class=\"axis\" stroke=\"") + kAxisColour + "\" stroke-width=\"" +
            view_.Pixels(kAxisWidth) + "\"" + Dashes(kAxisDashes) + " d=\"M" + Text(part->from) + " L" +
            Text(part->to) + "\"/>\n";
  }

  void WriteLayer(const std::string& name, const std::vector<ShownGroup>& groups) {
    const std::string escaped = EscapeXml(name);
    svg_ += "<g class=\"layer\" data-layer=\"" + escaped + "\">\n<title>" + escaped + "</title>\n";
    for (const ShownGroup& group : groups) WriteGroup(group);
    svg_ += "</g>\n";
  }

  void WriteGroup(const ShownGroup& group) {
    const std::string colour(group.pen.colour->svg);
    svg_ += "<g class=\"" + std::string(group.pen.colour->name) + " " + std::string(group.pen.style->name) +
            "\" stroke=\"" + colour + "\" stroke-width=\"" + view_.Pixels(kStrokeWidth) + "\"";
    if (group.pen.style->dashes[0] > 0) svg_ += Dashes(group.pen.style->dashes);
    svg_ += ">\n";
    for (const ShownCurve& shown : group.curves) {
      const Kurve& curve = shown.curve;
      const bool isFilled = IsFilled(curve);
      svg_ += "<path " + (isFilled ? "fill=\"" + colour + "\" fill-opacity=\"" + kFillOpacity + "\" " : "") +
              "d=\"" + PathOf(curve) + "\"/>\n";
    }
    for (const geometry::CLine& line : group.lines) {
      const auto part = view_.VisiblePartOf(line);
      if (part) svg_ += "<path d=\"M" + Text(part->from) + " L" + Text(part->to) + "\"/>\n";
    }
    svg_ += "</g>\n";
  }

  std::string Dashes(std::span<const double> dashes) const {
    std::string text;
    for (const double dash : dashes) text += (text.empty() ? "" : " ") + view_.Pixels(dash);
    return " stroke-dasharray=\"" + text + "\"";
  }

  const PictureView& view_;
  std::string svg_;
};

/// "did you mean Billet_Spindel_1?", or the names of all layers.
std::string HintFor(const std::string& layer, const Drawing& drawing) {
  std::vector<std::string> names;
  for (const auto& [name, pen] : drawing.layers) names.push_back(name);
  const std::vector<std::string> near = NearWords(layer, names);
  std::string list;
  for (const std::string& name : near.empty() ? names : near) {
    list += (list.empty() ? "" : near.empty() ? ", " : " or ") + name;
  }
  return near.empty() ? "the layers are: " + list : "did you mean " + list + "?";
}

Result<void> CheckLayers(const Drawing& drawing, const PictureOptions& options) {
  for (const std::string& layer : options.layers) {
    if (drawing.layers.contains(layer)) continue;
    return Fault{.text = "layer '" + layer + "' does not exist; " + HintFor(layer, drawing),
                 .kind = FaultKind::kMissing};
  }
  return {};
}

}  // namespace

Result<std::string> PictureSvg(const Drawing& drawing, const PictureOptions& options) {
  VANZET_DO(CheckLayers(drawing, options));
  const ShownLayers groups = ShownOf(drawing, options.window, options.layers);
  return Writer(PictureView(BoxOf(groups), options)).Write(groups);
}

}  // namespace vanzet::drawing
