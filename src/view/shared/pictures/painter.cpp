#include "view/shared/pictures/painter.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "view/shared/pictures/measure_painter.h"

namespace vanzet::view {
namespace {

Rgb Mixed(Rgb a, Rgb b, double partOfA) {
  const auto mix = [&](std::uint8_t x, std::uint8_t y) {
    return static_cast<std::uint8_t>(std::lround(x * partOfA + y * (1 - partOfA)));
  };
  return {mix(a.red, b.red), mix(a.green, b.green), mix(a.blue, b.blue)};
}

struct Look {
  Pen pen;
  std::optional<Rgb> fill = {};
  std::optional<Rgb> hatch = {};
};

Look LookOf(Ink ink, const Sketch& sketch, const Palette& palette) {
  const auto& [text, base, accent, onAccent] = palette;
  const double faint = sketch.isExample ? 0.55 : 1;
  const Pen line = {Mixed(text, base, 0.85 * faint), 1.4, Dash::kSolid, true};
  switch (ink) {
    case Ink::kMaterial: return {line, Mixed(accent, base, 0.22 * faint), Mixed(text, base, 0.32 * faint)};
    case Ink::kBody: return {line, Mixed(text, base, 0.10 * faint)};
    case Ink::kGhost: return {{Mixed(text, base, 0.45 * faint), 1.1, Dash::kDashed}};
    case Ink::kPart: return {line, Mixed(accent, base, 0.5 * faint)};
    default: return {{Mixed(text, base, 0.6), 1, Dash::kDashDot}};
  }
}

/// The box around the shapes but the axes.
Box BoundsOf(const Sketch& sketch) {
  Path all;
  for (const Shape& shape : sketch.shapes) {
    if (shape.ink == Ink::kAxis) continue;
    all.rings.insert(all.rings.end(), shape.path.rings.begin(), shape.path.rings.end());
  }
  return view::BoundsOf(all);
}

/// The number of lanes of measures on a side.
int Lanes(const Sketch& sketch, Where where) {
  int lanes = 0;
  for (const Measure& measure : sketch.measures) {
    const bool takesALane = measure.where == where && measure.kind != Measure::Kind::kAngle;
    if (takesALane) lanes = std::max(lanes, measure.lane + 1);
  }
  return lanes;
}

/// The area that is left to the shapes.
Box Inner(const Box& area, const Sketch& sketch, double lane) {
  const auto margin = [&](Where where) { return lane * 1.1 + Lanes(sketch, where) * lane; };
  return {area.left + margin(Where::kLeft), area.top + margin(Where::kAbove),
          area.right - margin(Where::kRight), area.bottom - margin(Where::kBelow)};
}

Fit Fitted(const Box& bounds, const Box& area) {
  const double scale = std::min(area.Width() / bounds.Width(), area.Height() / bounds.Height());
  const Point middle = bounds.Centre();
  return {scale, area.Centre() + Point{-scale * middle.x, scale * middle.y}};
}

void PaintShapes(Canvas& canvas, const Sketch& sketch, const Fit& fit, const Palette& palette) {
  for (const Shape& shape : sketch.shapes) {
    const Look look = LookOf(shape.ink, sketch, palette);
    const Path path = fit.Of(shape.path);
    if (look.fill) canvas.Fill(path, *look.fill);
    if (look.hatch) canvas.Hatch(path, *look.hatch);
    canvas.Stroke(path, look.pen);
  }
}

/// The fault in its colour, then the notes; returns what is left of the area above them.
Box PaintLines(Canvas& canvas, Box area, const Sketch& sketch, const Palette& palette) {
  const auto line = [&](const std::string& text, Rgb colour) {
    canvas.Text(area, TextPlace::kBottomCentre, text, colour);
    area.bottom -= canvas.WrappedHeight(text, area.Width()) + 4;
  };
  for (const std::string& note : sketch.notes) line(note, Mixed(palette.text, palette.base, 0.7));
  if (!sketch.fault.empty()) line(sketch.fault, FaultColour(palette));
  return area;
}

}  // namespace

Rgb FaultColour(const Palette& palette) {
  return palette.IsDark() ? Rgb{0xff, 0x8a, 0x80} : Rgb{0xb3, 0x15, 0x1f};
}

std::vector<Box> Paint(Canvas& canvas, const Box& area, const Sketch& sketch, const Palette& palette,
                       const Emphasis& emphasis) {
  if (sketch.shapes.empty()) return {};
  const Box left = PaintLines(canvas, area, sketch, palette);
  const double lane = canvas.LineHeight() * 1.55;
  const Box bounds = BoundsOf(sketch);
  const Box inner = Inner(left, sketch, lane);
  const bool isEmpty = bounds.Width() <= 0 || bounds.Height() <= 0;
  if (inner.Width() < lane || inner.Height() < lane || isEmpty) return {};
  const Fit fit = Fitted(bounds, inner);
  PaintShapes(canvas, sketch, fit, palette);
  return PaintMeasures(canvas, sketch, {fit, fit.Of(bounds), lane, area}, palette, emphasis);
}

}  // namespace vanzet::view
