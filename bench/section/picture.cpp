#include "section/picture.h"

#include <algorithm>
#include <cmath>

#include "base/number_text.h"
#include "base/quote.h"
#include "base/xml_text.h"
#include "section/style.h"

namespace vanzet::section {
namespace {

using geometry::Point;
using geometry::Region;
using geometry::RegionSpan;

// Millimetres of paper.
constexpr double kText = 2.8;
constexpr double kOutline = 0.5, kThin = 0.18, kHatchLine = 0.12;
constexpr double kArrowLength = 2.2, kArrowWidth = 0.8;
constexpr double kDatumRadius = 2;

constexpr int kDigits = 10;

std::string Number(double value) {
  return NumberText(value, kDigits);
}

std::string PointText(const Point& point) {
  return Number(point.x) + " " + Number(point.y);
}

std::string Quote(std::string_view name, const std::string& value) {
  return " " + std::string(name) + "=\"" + value + "\"";
}

bool IsOnAxis(const RegionSpan& span) {
  constexpr double kAxis = 1e-6;
  return span.dir == geometry::LINEAR && std::abs(span.p0.y) < kAxis && std::abs(span.p1.y) < kAxis;
}

/// The part of a path that draws a span, after its start.
std::string StepOf(const RegionSpan& span) {
  if (span.dir == geometry::LINEAR) return "L" + PointText(span.p1);
  const geometry::Vector2d from(span.pc, span.p0), to(span.pc, span.p1);
  const double side = (from.dx * to.dy - from.dy * to.dx) * span.dir;
  const std::string radius = Number(span.Radius());
  return "A" + radius + " " + radius + " 0 " + (side < 0 ? "1 " : "0 ") +
         (span.dir == geometry::ACW ? "1 " : "0 ") + PointText(span.p1);
}

/// Closed loops, to be filled.
std::string AreaOf(const Region& region) {
  std::string path;
  for (const geometry::RegionLoop& loop : region.loops) {
    path += (path.empty() ? "M" : " M") + PointText(loop.spans.front().p0);
    for (const RegionSpan& span : loop.spans) path += " " + StepOf(span);
    path += " Z";
  }
  return path;
}

/// The outline without the axis, which bounds no body.
std::string OutlineOf(const Region& region) {
  std::string path;
  const auto add = [&](const std::vector<RegionSpan>& spans) {
    bool isDown = false;
    for (const RegionSpan& span : spans) {
      if (!IsOnAxis(span)) {
        if (!isDown) path += (path.empty() ? "M" : " M") + PointText(span.p0);
        path += " " + StepOf(span);
      }
      isDown = !IsOnAxis(span);
    }
  };
  for (const geometry::RegionLoop& loop : region.loops) add(loop.spans);
  for (const RegionSpan& span : region.loose) add({span});
  return path;
}

/// Writes the picture; lengths of paper become lengths of the set-up.
class Writer {
 public:
  Writer(const Section& section, const Layout& layout, const PictureOptions& options, double scale)
      : section_(section), layout_(layout), options_(options), scale_(scale) {}

  std::string Write() {
    WriteHead();
    svg_ +=
        "<g transform=\"scale(1 -1)\" fill=\"none\" stroke-linejoin=\"round\" stroke-linecap=\"round\">\n";
    WriteAxis();
    for (const std::string_view layer : kLayers) WriteLayer(layer);
    return svg_ + "</g>\n</svg>\n";
  }

 private:
  std::string Paper(double millimetres) const { return NumberText(millimetres / scale_, 5); }

  std::string Size() const {
    const geometry::Box& box = layout_.box;
    const auto& [width, height] = std::pair(options_.width, options_.height);
    if (!width && !height) {
      return Quote("width", NumberText(box.Width() * scale_, 6) + "mm") +
             Quote("height", NumberText(box.Height() * scale_, 6) + "mm");
    }
    const double ratio = box.Width() / box.Height();
    const double w = width ? *width : *height * ratio, h = height ? *height : *width / ratio;
    return Quote("width", Number(std::max(1.0, std::round(w)))) +
           Quote("height", Number(std::max(1.0, std::round(h))));
  }

  void WriteHead() {
    const geometry::Box& box = layout_.box;
    const std::string x = Number(box.min.x), y = Number(-box.max.y);
    const std::string width = Number(box.Width()), height = Number(box.Height());
    svg_ = "<svg xmlns=\"http://www.w3.org/2000/svg\"" + Size() +
           Quote("viewBox", x + " " + y + " " + width + " " + height) + Quote("font-family", "sans-serif") +
           Quote("font-size", Number(layout_.textHeight)) + ">\n<rect" + Quote("x", x) + Quote("y", y) +
           Quote("width", width) + Quote("height", height) + " fill=\"#ffffff\"/>\n";
  }

  void WriteAxis() {
    constexpr double kBeyond = 4;
    const geometry::Box box = BoxOf(section_);
    if (box.min.x > box.max.x) return;
    const double beyond = kBeyond / scale_;
    svg_ += "<path class=\"axis\"" + Quote("stroke", std::string(kAxisColour)) +
            Quote("stroke-width", Paper(kThin)) +
            Quote("stroke-dasharray", Paper(8) + " " + Paper(1.2) + " " + Paper(1.2) + " " + Paper(1.2)) +
            Quote("d", "M" + PointText({box.min.x - beyond, 0}) + " L" + PointText({box.max.x + beyond, 0})) +
            "/>\n";
  }

  void WriteLayer(std::string_view layer) {
    if (!options_.layers.empty() && std::ranges::find(options_.layers, layer) == options_.layers.end())
      return;
    svg_ += "<g class=\"layer\"" + Quote("data-layer", std::string(layer)) + ">\n";
    if (layer == "datum") WriteDatums();
    if (layer == "dimensions") WriteDimensions();
    if (layer == "legend") WriteLegend();
    for (const SectionBody& body : section_.bodies) {
      if (LayerOf(body.kind) == layer) WriteBody(body);
    }
    svg_ += "</g>\n";
  }

  void WriteBody(const SectionBody& body) {
    const BodyStyle& style = StyleOf(body.kind);
    const std::string name = EscapeXml(body.name);
    svg_ += "<g class=\"body\"" + Quote("data-body", name) + ">\n<title>" + name + "</title>\n";
    const Region area = HatchedArea(body, section_);
    svg_ += "<path class=\"area\"" + Quote("fill", TextOf(TintOf(body.kind))) +
            Quote("d", AreaOf(body.region)) + "/>\n";
    std::string hatch;
    for (const Line& line : HatchOf(area, {style.Degrees(body.isSub), style.distance / scale_})) {
      hatch += (hatch.empty() ? "M" : " M") + PointText(line.from) + " L" + PointText(line.to);
    }
    const std::string ink = TextOf(InkOf(body.kind));
    if (!hatch.empty()) {
      svg_ += "<path class=\"hatch\"" + Quote("stroke", ink) + Quote("stroke-width", Paper(kHatchLine)) +
              Quote("d", hatch) + "/>\n";
    }
    svg_ += "<path class=\"outline\"" + Quote("stroke", ink) + Quote("stroke-width", Paper(kOutline)) +
            Quote("d", OutlineOf(body.region)) + "/>\n</g>\n";
  }

  /// A circle with two of its quarters filled.
  void WriteDatums() {
    const double r = kDatumRadius / scale_;
    const std::string radius = Number(r) + " " + Number(r) + " 0 0 1 ";
    for (const Datum& datum : section_.datums) {
      const Point& at = datum.place;
      const auto quarter = [&](const Point& from, const Point& to) {
        return "M" + PointText(at) + " L" + PointText(from) + " A" + radius + PointText(to) + " Z";
      };
      const Point right(at.x + r, at.y), up(at.x, at.y + r), left(at.x - r, at.y), down(at.x, at.y - r);
      svg_ += "<g class=\"datum\"" + Quote("data-spindle", datum.isSub ? "sub" : "main") +
              Quote("stroke", std::string(kDatumColour)) + Quote("stroke-width", Paper(kThin)) +
              ">\n<path fill=\"#ffffff\"" +
              Quote("d", "M" + PointText(right) + " A" + radius + PointText(left) + " A" + radius +
                             PointText(right) + " Z") +
              "/>\n<path" + Quote("fill", std::string(kDatumColour)) +
              Quote("d", quarter(right, up) + " " + quarter(left, down)) + "/>\n</g>\n";
    }
  }

  void WriteDimensions() {
    const std::string ink(kDimensionColour);
    for (const DimensionLines& lines : layout_.dimensions) {
      std::string thin, arrows;
      for (const Line& line : lines.thin) {
        thin += (thin.empty() ? "M" : " M") + PointText(line.from) + " L" + PointText(line.to);
      }
      for (const Arrow& arrow : lines.arrows) arrows += ArrowPath(arrow);
      svg_ += "<g class=\"dimension\">\n<path" + Quote("stroke", ink) + Quote("stroke-width", Paper(kThin)) +
              Quote("d", thin) + "/>\n<path" + Quote("fill", ink) + Quote("d", arrows) + "/>\n";
      WriteGround(lines.label);
      WriteLabel(lines.label);
      svg_ += "</g>\n";
    }
  }

  std::string ArrowPath(const Arrow& arrow) const {
    const geometry::Vector2d back = arrow.direction * (-kArrowLength / scale_);
    const geometry::Vector2d side = arrow.direction.LeftNormal() * (kArrowWidth / 2 / scale_);
    const Point foot = arrow.tip + back;
    return "M" + PointText(arrow.tip) + " L" + PointText(foot + side) + " L" + PointText(foot - side) + " Z";
  }

  /// Hides what is behind a label.
  void WriteGround(const Label& label) {
    const double height = layout_.textHeight, width = WidthOf(label.text, height);
    svg_ += "<rect fill=\"#ffffff\"" + Quote("x", Number(label.at.x - width / 2)) +
            Quote("y", Number(label.at.y - 0.15 * height)) + Quote("width", Number(width)) +
            Quote("height", Number(0.95 * height)) + "/>\n";
  }

  /// Letters are not mirrored: they have a transform of their own.
  void WriteLabel(const Label& label) {
    svg_ += "<text" + Quote("transform", "matrix(1 0 0 -1 " + PointText(label.at) + ")") +
            Quote("text-anchor", label.anchor == Anchor::kMiddle ? "middle" : "start") +
            Quote("fill", std::string(kDimensionColour)) + ">" + EscapeXml(label.text) + "</text>\n";
  }

  void WriteLegend() {
    for (const LegendEntry& entry : layout_.legend) {
      const scene::Kind kind = section_.bodies[entry.body].kind;
      svg_ += "<rect" + Quote("x", Number(entry.square.min.x)) + Quote("y", Number(entry.square.min.y)) +
              Quote("width", Number(entry.square.Width())) + Quote("height", Number(entry.square.Height())) +
              Quote("fill", TextOf(TintOf(kind))) + Quote("stroke", TextOf(InkOf(kind))) +
              Quote("stroke-width", Paper(kThin)) + "/>\n";
      WriteLabel(entry.label);
    }
    WriteLabel(layout_.note);
  }

  const Section& section_;
  const Layout& layout_;
  const PictureOptions& options_;
  double scale_;
  std::string svg_;
};

Result<void> CheckLayers(const std::vector<std::string>& layers) {
  for (const std::string& layer : layers) {
    if (std::ranges::find(kLayers, layer) != kLayers.end()) continue;
    std::string names;
    for (const std::string_view name : kLayers) names += (names.empty() ? "" : ", ") + std::string(name);
    return Fault{.text = "layer " + Quoted(layer) + " does not exist; the layers are: " + names,
                 .kind = FaultKind::kMissing};
  }
  return {};
}

}  // namespace

std::string_view LayerOf(scene::Kind kind) {
  switch (kind) {
    case scene::Kind::kBillet: return "billet";
    case scene::Kind::kFinishPart: return "part";
    default: return "devices";
  }
}

double UsualScale(const Section& section) {
  constexpr double kWidth = 250, kHeight = 120;  // millimetres of A4 that are left for the section
  constexpr double kLargest = 10, kSmallest = 1e-3;
  const geometry::Box box = BoxOf(section);
  if (box.min.x > box.max.x) return 1;
  const auto fits = [&](double scale) {
    return box.Width() * scale <= kWidth && box.max.y * scale <= kHeight;
  };
  for (double decade = kLargest; decade >= kSmallest; decade /= 10) {
    for (const double part : {1.0, 0.5, 0.2}) {
      if (fits(decade * part)) return decade * part;
    }
  }
  return kSmallest;
}

std::string ScaleText(double scale) {
  return scale >= 1 ? NumberText(scale, 4) + ":1" : "1:" + NumberText(1 / scale, 4);
}

Result<std::string> PictureSvg(const Section& section, const PictureOptions& options,
                               const Translations& texts) {
  VANZET_DO(CheckLayers(options.layers));
  PictureOptions complete = options;
  if (complete.scale <= 0) complete.scale = UsualScale(section);
  const Layout layout = LayOut(section, TextsOf(complete, texts), kText / complete.scale);
  return Writer(section, layout, complete, complete.scale).Write();
}

}  // namespace vanzet::section
