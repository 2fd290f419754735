#include "section/dimensions.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "base/translations.h"
#include "scene/placing.h"

namespace vanzet::section {
namespace {

using geometry::Box;
using scene::Kind;

constexpr double kTouch = 0.05;    // millimetres between what touches
constexpr double kLeast = 0.0005;  // millimetres: a shorter length is none

/// A part of a spindle's axis, in the spindle's own direction.
struct Range {
  double from, to;

  double Length() const { return to - from; }
  double At(double part) const { return from + part * Length(); }
};

/// Measures one spindle. Its own x runs away from it, with its datum at 0.
class SpindleMeasures {
 public:
  SpindleMeasures(const scene::Spindle& spindle, bool isSub, double datum, Section& section)
      : spindle_(spindle), isSub_(isSub), datum_(datum), section_(section) {}

  void Add() {
    const SectionBody* const holder = Find(Kind::kJaw) != nullptr ? Find(Kind::kJaw) : Find(Kind::kClamp);
    const SectionBody* const billet = Find(Kind::kBillet);
    if (holder != nullptr) front_ = RangeOf(*holder).to;
    if (billet != nullptr) AddBillet(*billet);
    if (holder != nullptr && billet != nullptr) AddHeld(*holder, *billet);
    if (front_ && spindle_.clampingOut > 0) {
      AddAlong(Translatable("Clamping out"), {spindle_.origin - spindle_.clampingOut, spindle_.origin});
    }
    if (holder == nullptr && billet == nullptr) return;
    AddAlong(Translatable("Datum"), {std::min(0.0, spindle_.origin), std::max(0.0, spindle_.origin)});
    section_.datums.push_back({isSub_, {Place(spindle_.origin), 0}});
  }

 private:
  double Place(double own) const { return isSub_ ? datum_ - own : datum_ + own; }
  double Own(double x) const { return isSub_ ? datum_ - x : x - datum_; }

  const SectionBody* Find(Kind kind) const {
    const auto found = std::ranges::find_if(
        section_.bodies, [&](const SectionBody& body) { return body.kind == kind && body.isSub == isSub_; });
    return found == section_.bodies.end() ? nullptr : &*found;
  }

  Range RangeOf(const SectionBody& body) const {
    const Box box = BoxOf(body.region);
    const double a = Own(box.min.x), b = Own(box.max.x);
    return {std::min(a, b), std::max(a, b)};
  }

  void AddBillet(const SectionBody& billet) {
    const Range whole = RangeOf(billet),
                part = {spindle_.origin - spindle_.billet.partLength, spindle_.origin};
    const Range free = {front_ && *front_ > whole.from && *front_ < whole.to ? *front_ : whole.from,
                        whole.to};
    AddAlong(Translatable("Billet length"), whole);
    const bool isOther = std::abs(part.from - whole.from) > kLeast || std::abs(part.to - whole.to) > kLeast;
    if (isOther) AddAlong(Translatable("Part length"), part);
    AddDiameter(Translatable("Billet diameter"), free.At(0.6), BoxOf(billet.region).max.y);
    const bool isCylinder = spindle_.billet.type == scene::billet_type::kCylinder;
    if (isCylinder) AddDiameter(Translatable("Bore"), free.At(0.85), spindle_.billet.innerDiameter / 2);
    if (front_) AddAlong(Translatable("Stick-out"), {*front_, whole.to});
  }

  void AddHeld(const SectionBody& holder, const SectionBody& billet) {
    const double defined = scene::DefinedHeldRadius(spindle_);
    const double radius = defined > 0 ? defined : BoxOf(billet.region).max.y;
    const auto touched = TouchedAt(holder, radius);
    if (!touched) return;
    const Range whole = RangeOf(billet);
    const Range held = {std::max(touched->from, whole.from), std::min(touched->to, whole.to)};
    if (held.Length() <= kLeast) return;
    AddDiameter(Translatable("Clamp diameter"), held.At(0.5), radius);
    AddAlong(Translatable("Clamped length"), held);
  }

  /// Where a body has its outline along a radius.
  std::optional<Range> TouchedAt(const SectionBody& body, double radius) const {
    std::optional<Range> touched;
    for (const geometry::RegionLoop& loop : body.region.loops) {
      for (const geometry::RegionSpan& span : loop.spans) {
        if (std::abs(span.p0.y - radius) > kTouch || std::abs(span.p1.y - radius) > kTouch) continue;
        const double a = Own(span.p0.x), b = Own(span.p1.x);
        touched = {std::min({a, b, touched ? touched->from : a}),
                   std::max({a, b, touched ? touched->to : a})};
      }
    }
    return touched;
  }

  void AddAlong(const char* name, const Range& range) {
    if (range.Length() <= kLeast) return;
    section_.dimensions.push_back({.name = name,
                                   .isSub = isSub_,
                                   .direction = Direction::kAlong,
                                   .from = {Place(range.from), 0},
                                   .to = {Place(range.to), 0}});
  }

  void AddDiameter(const char* name, double own, double radius) {
    if (radius <= kLeast) return;
    section_.dimensions.push_back({.name = name,
                                   .isSub = isSub_,
                                   .direction = Direction::kDiameter,
                                   .from = {Place(own), 0},
                                   .to = {Place(own), radius}});
  }

  const scene::Spindle& spindle_;
  bool isSub_;
  double datum_;
  Section& section_;
  std::optional<double> front_;  ///< where the billet leaves what holds it
};

}  // namespace

void AddMeasures(const scene::Equipment& equipment, double subDatum, Section& section) {
  SpindleMeasures(equipment.spindles[0], false, 0, section).Add();
  SpindleMeasures(equipment.spindles[1], true, subDatum, section).Add();
}

}  // namespace vanzet::section
