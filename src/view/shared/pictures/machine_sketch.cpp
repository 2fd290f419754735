#include <cmath>
#include <numbers>

#include "view/ids.h"
#include "view/shared/lengths.h"
#include "view/shared/pictures/pictures.h"
#include "view/shared/sketch.h"
#include "view/shared/texts.h"

// Pictures of the machine around the part.

namespace vanzet::view {
namespace {

constexpr const char* kUsed = Translatable("The steady rest supports the part.");
constexpr const char* kNotUsed = Translatable("The steady rest is not used.");
constexpr const char* kScheme = Translatable("W: from the datum to the front of the part");

/// The frame of a steady rest seen along the spindle: a ring on a foot.
Path Frame() {
  constexpr double kRadius = 62, kHalfFoot = 34, kGround = -84;
  const double atFoot = std::asin(kHalfFoot / kRadius) * 180 / std::numbers::pi;
  Ring outside = {Arc({}, kRadius, -90 + atFoot, 270 - atFoot)};
  outside.points.insert(outside.points.end(), {{-kHalfFoot, kGround}, {kHalfFoot, kGround}});
  return {{outside, Circle({}, 46).rings.front()}};
}

/// An edit of the datum page.
struct DatumEdit {
  std::int32_t edit;
  const char* letter;
  double from, to;
  Where where;
};

// The main spindle's chuck ends at -100, the sub spindle's begins at 100; the parts protrude.
constexpr double kChuckFace = 100;
constexpr double kPartFace = 30;
constexpr double kChuckBack = 162;

constexpr DatumEdit kDatumEdits[] = {
    {control::kClampingOutMain, "A", -kChuckFace, -kPartFace, Where::kAbove},
    {control::kOriginMain, "W", -kChuckBack, -kPartFace, Where::kBelow},
    {control::kClampingOutSub, "B", kPartFace, kChuckFace, Where::kAbove},
    {control::kOriginSub, "W", kPartFace, kChuckBack, Where::kBelow},
};

/// The letter with the text of its edit.
std::string Labelled(const DatumEdit& row, const PageValues& values) {
  const Control* const control = values.Find(row.edit);
  const std::string value = control == nullptr ? "" : Trimmed(RestingText(*control, ShownUnit()));
  return value.empty() ? row.letter : row.letter + (' ' + value);
}

/// A chuck with its jaws and the part in it; `side` is -1 for the main spindle.
void AddSpindle(Sketch& sketch, double side) {
  const auto block = [&](Ink ink, double from, double to, double low, double high) {
    Add(sketch, ink, Rectangle(side * from, low, side * to, high));
  };
  block(Ink::kBody, kChuckFace + 16, kChuckBack, -52, 52);
  block(Ink::kPart, kPartFace, kChuckFace + 16, -20, 20);
  for (const double half : {1.0, -1.0})
    block(Ink::kMaterial, kChuckFace, kChuckFace + 16, half * 20, half * 42);
  // A ring with a cross marks the datum, and the origin that is measured from it.
  for (const double x : {side * kChuckBack, side * kPartFace}) {
    Add(sketch, Ink::kGhost, Circle({x, 0}, 6));
    Add(sketch, Ink::kGhost, Stroke({x, -10}, {x, 10}));
  }
}

}  // namespace

Sketch BezelSketch(std::int32_t /*bitmap*/, const PageValues& values) {
  const bool isUsed = values.IsChecked(control::kUseBezel);
  Sketch sketch;
  Add(sketch, isUsed ? Ink::kBody : Ink::kGhost, Frame());
  Add(sketch, Ink::kMaterial, Circle({}, 24));
  for (const double degrees : {90.0, 210.0, 330.0}) {
    const Point roller = OnCircle({}, 33, degrees);
    Add(sketch, isUsed ? Ink::kPart : Ink::kGhost, Circle(roller, 9));
    Add(sketch, Ink::kGhost, Stroke(OnCircle({}, 42, degrees), OnCircle({}, 54, degrees)));
  }
  Add(sketch, Ink::kAxis, Stroke({-68, 0}, {68, 0}));
  Add(sketch, Ink::kAxis, Stroke({0, -86}, {0, 66}));
  sketch.isExample = !isUsed;
  sketch.notes.push_back(Translate(isUsed ? kUsed : kNotUsed));
  return sketch;
}

Sketch DatumSketch(std::int32_t /*bitmap*/, const PageValues& values) {
  Sketch sketch;
  AddSpindle(sketch, -1);
  AddSpindle(sketch, 1);
  Add(sketch, Ink::kAxis, Stroke({-176, 0}, {176, 0}));
  for (const DatumEdit& row : kDatumEdits) {
    const double y = row.where == Where::kAbove ? 20 : -20;
    sketch.measures.push_back({.kind = Measure::Kind::kAlong,
                               .where = row.where,
                               .letter = Labelled(row, values),
                               .control = row.edit,
                               .from = {row.from, y},
                               .to = {row.to, y}});
    FindNoNumber(sketch, values, row.edit);
  }
  sketch.notes.push_back(Translate(kScheme));
  return sketch;
}

}  // namespace vanzet::view
