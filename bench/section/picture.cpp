#include "section/picture.h"

#include <algorithm>
#include <cmath>

#include "base/number_text.h"
#include "base/quote.h"
#include "base/xml_text.h"
#include "section/style.h"
#include "section/svg_path.h"

namespace vanzet::section {
namespace {

using geometry::Point;
using geometry::Region;

// Millimetres of paper.
constexpr double kText = 2.8;
constexpr double kOutline = 0.5, kThin = 0.18, kHatchLine = 0.12;
constexpr double kArrowLength = 2.2, kArrowWidth = 0.8;
constexpr double kDatumRadius = 2;
constexpr double kAlertLine = 0.7, kRing = 3;

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
    WriteAlert(options_.alert);
    return svg_ + "</g>\n</svg>\n";
  }

 private:
  std::string Paper(double millimetres) const { return NumberText(millimetres / scale_, 5); }

  std::string Size() const {
    const geometry::Box& box = layout_.box;
    const auto& [width, height] = std::pair(options_.width, options_.height);
    if (!width && !height) {
      return SvgAttribute("width", NumberText(box.Width() * scale_, 6) + "mm") +
             SvgAttribute("height", NumberText(box.Height() * scale_, 6) + "mm");
    }
    const double ratio = box.Width() / box.Height();
    const double w = width ? *width : *height * ratio, h = height ? *height : *width / ratio;
    return SvgAttribute("width", SvgNumber(std::max(1.0, std::round(w)))) +
           SvgAttribute("height", SvgNumber(std::max(1.0, std::round(h))));
  }

  void WriteHead() {
    const geometry::Box& box = layout_.box;
    const std::string x = SvgNumber(box.min.x), y = SvgNumber(-box.max.y);
    const std::string width = SvgNumber(box.Width()), height = SvgNumber(box.Height());
    svg_ = "<svg xmlns=\"http://www.w3.org/2000/svg\"" + Size() +
           SvgAttribute("viewBox", x + " " + y + " " + width + " " + height) +
           SvgAttribute("font-family", "sans-serif") +
           SvgAttribute("font-size", SvgNumber(layout_.textHeight)) + ">\n<rect" + SvgAttribute("x", x) +
           SvgAttribute("y", y) + SvgAttribute("width", width) + SvgAttribute("height", height) +
           " fill=\"#ffffff\"/>\n";
  }

  void WriteAxis() {
    constexpr double kBeyond = 4;
    const geometry::Box box = BoxOf(section_);
    if (box.min.x > box.max.x) return;
    const double beyond = kBeyond / scale_;
    svg_ +=
        "<path class=\"axis\"" + SvgAttribute("stroke", std::string(kAxisColour)) +
        SvgAttribute("stroke-width", Paper(kThin)) +
        SvgAttribute("stroke-dasharray", Paper(8) + " " + Paper(1.2) + " " + Paper(1.2) + " " + Paper(1.2)) +
        SvgAttribute("d",
                     "M" + SvgPoint({box.min.x - beyond, 0}) + " L" + SvgPoint({box.max.x + beyond, 0})) +
        "/>\n";
  }

  void WriteLayer(std::string_view layer) {
    if (!options_.layers.empty() && std::ranges::find(options_.layers, layer) == options_.layers.end())
      return;
    svg_ += "<g class=\"layer\"" + SvgAttribute("data-layer", std::string(layer)) + ">\n";
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
    svg_ += "<g class=\"body\"" + SvgAttribute("data-body", name) + ">\n<title>" + name + "</title>\n";
    const Region area = HatchedArea(body, section_);
    svg_ += "<path class=\"area\"" + SvgAttribute("fill", TextOf(TintOf(body.kind))) +
            SvgAttribute("d", SvgArea(body.region)) + "/>\n";
    std::string hatch;
    for (const Line& line : HatchOf(area, {style.Degrees(body.isSub), style.distance / scale_})) {
      hatch += (hatch.empty() ? "M" : " M") + SvgPoint(line.from) + " L" + SvgPoint(line.to);
    }
    const std::string ink = TextOf(InkOf(body.kind));
    if (!hatch.empty()) {
      svg_ += "<path class=\"hatch\"" + SvgAttribute("stroke", ink) +
              SvgAttribute("stroke-width", Paper(kHatchLine)) + SvgAttribute("d", hatch) + "/>\n";
    }
    svg_ += "<path class=\"outline\"" + SvgAttribute("stroke", ink) +
            SvgAttribute("stroke-width", Paper(kOutline)) + SvgAttribute("d", SvgOutline(body.region)) +
            "/>\n</g>\n";
  }

  /// A circle with two of its quarters filled.
  void WriteDatums() {
    const double r = kDatumRadius / scale_;
    const std::string radius = SvgNumber(r) + " " + SvgNumber(r) + " 0 0 1 ";
    for (const Datum& datum : section_.datums) {
      const Point& at = datum.place;
      const auto quarter = [&](const Point& from, const Point& to) {
        return "M" + SvgPoint(at) + " L" + SvgPoint(from) + " A" + radius + SvgPoint(to) + " Z";
      };
      const Point right(at.x + r, at.y), up(at.x, at.y + r), left(at.x - r, at.y), down(at.x, at.y - r);
      svg_ += "<g class=\"datum\"" + SvgAttribute("data-spindle", datum.isSub ? "sub" : "main") +
              SvgAttribute("stroke", std::string(kDatumColour)) + SvgAttribute("stroke-width", Paper(kThin)) +
              ">\n<path fill=\"#ffffff\"" +
              SvgAttribute("d", "M" + SvgPoint(right) + " A" + radius + SvgPoint(left) + " A" + radius +
                                    SvgPoint(right) + " Z") +
              "/>\n<path" + SvgAttribute("fill", std::string(kDatumColour)) +
              SvgAttribute("d", quarter(right, up) + " " + quarter(left, down)) + "/>\n</g>\n";
    }
  }

  void WriteDimensions() {
    const std::string ink(kDimensionColour);
    for (const DimensionLines& lines : layout_.dimensions) {
      std::string thin, arrows;
      for (const Line& line : lines.thin) {
        thin += (thin.empty() ? "M" : " M") + SvgPoint(line.from) + " L" + SvgPoint(line.to);
      }
      for (const Arrow& arrow : lines.arrows) arrows += ArrowPath(arrow);
      svg_ += "<g class=\"dimension\">\n<path" + SvgAttribute("stroke", ink) +
              SvgAttribute("stroke-width", Paper(kThin)) + SvgAttribute("d", thin) + "/>\n<path" +
              SvgAttribute("fill", ink) + SvgAttribute("d", arrows) + "/>\n";
      WriteGround(lines.label);
      WriteLabel(lines.label);
      svg_ += "</g>\n";
    }
  }

  std::string ArrowPath(const Arrow& arrow) const {
    const geometry::Vector2d back = arrow.direction * (-kArrowLength / scale_);
    const geometry::Vector2d side = arrow.direction.LeftNormal() * (kArrowWidth / 2 / scale_);
    const Point foot = arrow.tip + back;
    return "M" + SvgPoint(arrow.tip) + " L" + SvgPoint(foot + side) + " L" + SvgPoint(foot - side) + " Z";
  }

  /// Hides what is behind a label.
  void WriteGround(const Label& label) {
    const double height = layout_.textHeight, width = WidthOf(label.text, height);
    svg_ += "<rect fill=\"#ffffff\"" + SvgAttribute("x", SvgNumber(label.at.x - width / 2)) +
            SvgAttribute("y", SvgNumber(label.at.y - 0.15 * height)) +
            SvgAttribute("width", SvgNumber(width)) + SvgAttribute("height", SvgNumber(0.95 * height)) +
            "/>\n";
  }

  /// Letters are not mirrored: they have a transform of their own.
  void WriteLabel(const Label& label) {
    svg_ += "<text" + SvgAttribute("transform", "matrix(1 0 0 -1 " + SvgPoint(label.at) + ")") +
            SvgAttribute("text-anchor", label.anchor == Anchor::kMiddle ? "middle" : "start") +
            SvgAttribute("fill", std::string(kDimensionColour)) + ">" + EscapeXml(label.text) + "</text>\n";
  }

  void WriteLegend() {
    for (const LegendEntry& entry : layout_.legend) {
      const scene::Kind kind = section_.bodies[entry.body].kind;
      svg_ += "<rect" + SvgAttribute("x", SvgNumber(entry.square.min.x)) +
              SvgAttribute("y", SvgNumber(entry.square.min.y)) +
              SvgAttribute("width", SvgNumber(entry.square.Width())) +
              SvgAttribute("height", SvgNumber(entry.square.Height())) +
              SvgAttribute("fill", TextOf(TintOf(kind))) + SvgAttribute("stroke", TextOf(InkOf(kind))) +
              SvgAttribute("stroke-width", Paper(kThin)) + "/>\n";
      WriteLabel(entry.label);
    }
    WriteLabel(layout_.note);
  }

  void WriteAlert(const Alert& alert) {
    if (alert.caption.empty()) return;
    svg_ += "<g class=\"alert\"" + SvgAttribute("stroke", std::string(kAlertColour)) +
            SvgAttribute("stroke-width", Paper(kAlertLine)) + ">\n";
    for (const SectionBody& body : section_.bodies) {
      if (alert.bodies.contains(body.name))
        svg_ += "<path class=\"outline\"" + SvgAttribute("d", SvgOutline(body.region)) + "/>\n";
    }
    if (!alert.area.loops.empty())
      svg_ += "<path class=\"area\"" + SvgAttribute("fill", std::string(kAlertColour)) +
              SvgAttribute("d", SvgArea(alert.area)) + "/>\n";
    if (alert.place) WriteRing(*alert.place, alert.area);
    svg_ += "</g>\n";
    for (const Label& line : layout_.caption) WriteLabel(line);
  }

  /// A small area would not be seen without a ring about it; a large one needs none.
  void WriteRing(const Point& place, const Region& area) {
    const geometry::Box box = BoxOf(area);
    const bool hasArea = !area.loops.empty();
    const Point middle = hasArea ? Point((box.min.x + box.max.x) / 2, (box.min.y + box.max.y) / 2) : place;
    const double reach = hasArea ? std::hypot(box.Width(), box.Height()) / 2 : 0, ring = kRing / scale_;
    if (reach > 2 * ring) return;
    svg_ += "<circle" + SvgAttribute("cx", SvgNumber(middle.x)) + SvgAttribute("cy", SvgNumber(middle.y)) +
            SvgAttribute("r", SvgNumber(reach + ring)) + "/>\n";
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

/// Of the usual scales the largest one that fits; the smallest where none does.
double LargestScale(const std::function<bool(double scale)>& fits) {
  constexpr double kLargest = 10, kSmallest = 1e-3;
  for (double decade = kLargest; decade >= kSmallest; decade /= 10) {
    for (const double part : {1.0, 0.5, 0.2}) {
      if (fits(decade * part)) return decade * part;
    }
  }
  return kSmallest;
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
  const geometry::Box box = BoxOf(section);
  if (box.min.x > box.max.x) return 1;
  return LargestScale(
      [&](double scale) { return box.Width() * scale <= kWidth && box.max.y * scale <= kHeight; });
}

PaperSize SizeOf(const Section& section, const PictureOptions& options, const Translations& texts) {
  const Layout layout = LayOut(section, TextsOf(options, texts), kText / options.scale);
  return {layout.box.Width() * options.scale, layout.box.Height() * options.scale};
}

double ScaleFor(const PaperSize& room, const Section& section, const PictureOptions& options,
                const Translations& texts) {
  PictureOptions tried = options;
  return LargestScale([&](double scale) {
    tried.scale = scale;
    const PaperSize size = SizeOf(section, tried, texts);
    return size.width <= room.width && size.height <= room.height;
  });
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
