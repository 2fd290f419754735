#include <algorithm>
#include <cmath>

#include "devices/page_rules.h"
#include "view/ids.h"
#include "view/shared/lengths.h"
#include "view/shared/pictures/pictures.h"
#include "view/shared/sketch.h"
#include "view/shared/texts.h"

namespace vanzet::view {
namespace {

constexpr const char* kExample = Translatable("Example: A and B are needed");
constexpr const char* kBarTooShort = Translatable("F must be 0 or at least B + C + D = %1.");
constexpr const char* kBoreTooWide = Translatable("E must not exceed A.");

using devices::BilletSizes;

BilletSizes Read(const PageValues& values) {
  return {values.NumberOf(control::kOuterDiameter),  values.NumberOf(control::kCylinderLength),
          values.NumberOf(control::kFrontAllowance), values.NumberOf(control::kRearAllowance),
          values.NumberOf(control::kInnerDiameter),  values.NumberOf(control::kBarLength)};
}

void AddFault(Sketch& sketch, const std::string& fault, std::int32_t edit) {
  sketch.fault += (sketch.fault.empty() ? "" : "\n") + fault;
  sketch.wrong.push_back(edit);
}

/// The faults in the order in which the page reports them.
void FindFaults(Sketch& sketch, const BilletSizes& billet, const PageValues& values) {
  char letter = 'A';
  for (const std::int32_t id : {control::kOuterDiameter, control::kCylinderLength, control::kFrontAllowance,
                                control::kRearAllowance, control::kInnerDiameter, control::kBarLength}) {
    FindNoNumber(sketch, values, id, std::string(1, letter++));
  }
  if (!sketch.fault.empty() || !billet.AreOfABillet()) return;
  if (billet.IsBarTooShort())
    AddFault(sketch, Filled(Translate(kBarTooShort), {LengthLabel(billet.LeastBar())}), control::kBarLength);
  if (billet.IsBoreTooWide()) AddFault(sketch, Translate(kBoreTooWide), control::kInnerDiameter);
}

/// Numbers that make a picture: what is missing or cannot be drawn is left out.
BilletSizes Drawable(BilletSizes billet) {
  for (double* value : {&billet.front, &billet.rear, &billet.inner, &billet.bar}) {
    if (!std::isfinite(*value) || *value < 0) *value = 0;
  }
  return billet;
}

/// The part ends at its face, x = 0, and extends to its left; on the sub spindle `side` mirrors all.
class Drawn {
 public:
  Drawn(const BilletSizes& billet, double side) : billet_(billet), side_(side) {}

  Sketch Make() {
    AddBar();
    AddRing(-billet_.length - billet_.rear, billet_.front, Ink::kBody);
    AddRing(-billet_.length, 0, Ink::kMaterial);
    AddWideBore();
    const double left = -std::max(billet_.length + billet_.rear, BarInPicture());
    const double beyond = billet_.length * 0.08;
    Add(sketch_, Ink::kAxis, Stroke({side_ * (left - beyond), 0}, {side_ * (billet_.front + beyond), 0}));
    AddMeasures();
    return sketch_;
  }

 private:
  /// The end of the bar behind the face. A long bar is broken off in the picture.
  double BarInPicture() const {
    return billet_.bar <= 0 ? 0 : std::min(billet_.bar - billet_.front, billet_.LeastBar() * 1.5);
  }

  /// The lines of a bore that is wider than the billet.
  void AddWideBore() {
    if (!billet_.IsBoreTooWide()) return;
    for (const double y : {billet_.inner / 2, -billet_.inner / 2})
      Add(sketch_, Ink::kGhost, Stroke({side_ * -billet_.length, y}, {0, y}));
  }

  void AddRing(double from, double to, Ink ink) {
    const double r = billet_.outer / 2, bore = billet_.inner < billet_.outer ? billet_.inner / 2 : 0;
    for (const double half : {1.0, -1.0}) {
      Add(sketch_, half > 0 ? ink : Ink::kBody, Rectangle(side_ * from, half * bore, side_ * to, half * r));
    }
  }

  void AddBar() {
    if (billet_.bar <= 0) return;
    const double r = billet_.outer / 2;
    Add(sketch_, Ink::kGhost, Rectangle(side_ * -BarInPicture(), -r, side_ * billet_.front, r));
  }

  void Along(char letter, std::int32_t control, double from, double to, Where where, int lane) {
    if (from == to) return;
    const double y = where == Where::kAbove ? billet_.outer / 2 : -billet_.outer / 2;
    sketch_.measures.push_back({.kind = Measure::Kind::kAlong,
                                .where = where,
                                .lane = lane,
                                .letter = std::string(1, letter),
                                .control = control,
                                .from = {side_ * from, y},
                                .to = {side_ * to, y}});
  }

  void Across(char letter, std::int32_t control, double diameter, double x) {
    if (diameter <= 0) return;
    sketch_.measures.push_back({.kind = Measure::Kind::kAcross,
                                .letter = std::string(1, letter),
                                .control = control,
                                .from = {side_ * x, -diameter / 2},
                                .to = {side_ * x, diameter / 2},
                                .at = 0.75});
  }

  void AddMeasures() {
    Along('B', control::kCylinderLength, -billet_.length, 0, Where::kAbove, 0);
    Along('C', control::kFrontAllowance, 0, billet_.front, Where::kAbove, 0);
    Along('D', control::kRearAllowance, -billet_.length - billet_.rear, -billet_.length, Where::kAbove, 0);
    Along('F', control::kBarLength, -BarInPicture(), billet_.bar > 0 ? billet_.front : 0, Where::kBelow, 0);
    Across('A', control::kOuterDiameter, billet_.outer, -billet_.length * 0.3);
    Across('E', control::kInnerDiameter, billet_.inner, -billet_.length * 0.7);
  }

  const BilletSizes billet_;
  const double side_;
  Sketch sketch_;
};

}  // namespace

Sketch BilletSketch(std::int32_t bitmap, const PageValues& values) {
  const bool isSub = bitmap == picture::kBilletSub;
  BilletSizes billet = Read(values);
  Sketch check;
  FindFaults(check, billet, values);
  const bool isExample = !(billet.outer > 0 && billet.length > 0);
  if (isExample) billet = {60, 90, 8, 12, 20, isSub ? 0.0 : 200};
  Sketch sketch = Drawn(Drawable(billet), isSub ? -1 : 1).Make();
  sketch.fault = check.fault;
  sketch.wrong = check.wrong;
  sketch.isExample = isExample;
  if (isExample && check.fault.empty()) sketch.notes.push_back(Translate(kExample));
  return sketch;
}

}  // namespace vanzet::view
