#include <algorithm>
#include <cmath>

#include "base/translations.h"
#include "check/rules.h"
#include "check/spindle_devices.h"
#include "devices/kinds.h"
#include "scene/placing.h"

namespace vanzet::check {
namespace {

using geometry::Box;
using geometry::Point;
using scene::Kind;
using scene::Spindle;

constexpr double kTolerance = 0.05;        // millimetres
constexpr double kLeastClamped = 1.0 / 3;  // of the clamp diameter
constexpr double kFreeOverhang = 3;        // diameters, without a center
constexpr double kCentredOverhang = 8;     // diameters, without a steady rest
constexpr const char* kClampingOut = Translatable("the clamping out");

/// A spindle with what it holds, along its own axis: `Ahead` grows away from the spindle.
class Held {
 public:
  Held(const Setup& setup, const HalfSections& sections, bool isSub)
      : setup_(setup),
        isSub_(isSub),
        spindle_(setup.equipment.spindles[isSub ? 1 : 0]),
        billet_(sections.Find(Kind::kBillet, isSub)),
        jaw_(sections.Find(Kind::kJaw, isSub)),
        clamp_(sections.Find(Kind::kClamp, isSub)),
        hasCenter_(!isSub && sections.Find(Kind::kCenter) != nullptr) {}

  void Check(Collector& findings) const {
    if (billet_ == nullptr) return;
    CheckClampedLength(findings);
    CheckOverhang(findings);
    CheckDatum(findings);
  }

 private:
  Where Place() const { return isSub_ ? Where::kSub : Where::kMain; }

  /// The body that the billet leaves: the jaws, or the device without jaws. A chuck without jaws holds
  /// nothing.
  const HalfSection* Holder() const {
    if (jaw_ != nullptr) return jaw_;
    return clamp_ != nullptr && !devices::IsChuck(spindle_.clamp.params.type) ? clamp_ : nullptr;
  }

  bool HasFaceDriver() const { return devices::kFaceDriver.Has(spindle_.clamp.params.type); }

  double Front(const Box& box) const { return isSub_ ? -box.min.x : box.max.x; }
  double Back(const Box& box) const { return isSub_ ? -box.max.x : box.min.x; }
  /// The place in the turning plane of a place along the spindle's own axis.
  Point At(double along, double radius) const { return {isSub_ ? -along : along, radius}; }

  void CheckClampedLength(Collector& findings) const {
    const double diameter = 2 * scene::DefinedHeldRadius(spindle_);
    if (Holder() == nullptr || HasFaceDriver() || diameter <= 0) return;
    const Box holder = Holder()->box(), billet = billet_->box();
    const double front = std::min(Front(holder), Front(billet)), back = std::max(Back(holder), Back(billet));
    const double clamped = std::max(front - back, 0.0), needed = diameter * kLeastClamped;
    if (clamped >= needed - kTolerance) return;
    findings.Add("EQ-302",
                 {Place(),
                  {Translatable("The billet is clamped along %1, which is under a third of the diameter %2."),
                   {Length{clamped}, Length{diameter}}},
                  {{"length", clamped}, {"diameter", diameter}},
                  At(front, diameter / 2),
                  {Holder()->body().name, billet_->body().name},
                  ClampingOutFor(needed - clamped)});
  }

  /// The clamping out with which that much more is clamped; none where the holder has no room for it.
  std::optional<Change> ClampingOutFor(double more) const {
    const Box holder = Holder()->box();
    const double room = Back(billet_->box()) - Back(holder);
    const double to = spindle_.clampingOut - more;
    if (spindle_.clampingOut <= 0 || to <= 0 || room < more) return {};
    return Change{kClampingOut, spindle_.clampingOut, to};
  }

  void CheckOverhang(Collector& findings) const {
    if (Holder() == nullptr) return;
    const double diameter = OverhangDiameter();
    const double overhang = Front(billet_->box()) - Front(Holder()->box());
    const bool hasRest = !isSub_ && setup_.equipment.usesSteadyRest;
    if (diameter <= 0) return;
    const double times = overhang / diameter;
    if (times > kCentredOverhang && !hasRest) {
      Overhangs(
          Translatable("The billet reaches %1 out, which is %2 times its diameter, without a steady rest."),
          overhang, times, findings);
    } else if (times > kFreeOverhang && !hasCenter_ && !HasFaceDriver()) {
      Overhangs(Translatable("The billet reaches %1 out, which is %2 times its diameter, without a center."),
                overhang, times, findings);
    }
  }

  void Overhangs(const char* english, double overhang, double times, Collector& findings) const {
    findings.Add("EQ-303", {Place(),
                            {english, {Length{overhang}, Number{times}}},
                            {{"overhang", overhang}, {"times", times}},
                            At(Front(billet_->box()), 0),
                            {billet_->body().name}});
  }

  /// The diameter of what reaches out: that of the clamping, or the billet's when it is clamped inside.
  double OverhangDiameter() const {
    const double held = 2 * scene::DefinedHeldRadius(spindle_);
    return spindle_.clampsInside || held <= 0 ? 2 * billet_->box().max.y : held;
  }

  void CheckDatum(Collector& findings) const {
    const double own = isSub_ ? -setup_.scene.subDatum : 0;
    const double datum = own + spindle_.origin;
    const Box billet = billet_->box();
    if (datum > Front(billet) + kTolerance || datum < Back(billet) - kTolerance) {
      findings.Add("EQ-304", {Where::kDatum,
                              {Translatable("The origin is outside of the billet, which is from %1 to %2."),
                               {Length{Back(billet) - own}, Length{Front(billet) - own}}},
                              {{"origin", spindle_.origin}},
                              At(datum, 0),
                              {billet_->body().name}});
    }
    const double out = datum - spindle_.clampingOut;
    if (spindle_.clampingOut <= 0 || out > Back(billet) + kTolerance) return;
    findings.Add("EQ-304", {Where::kDatum,
                            {Translatable("The clamping out of %1 leaves nothing of the billet to be held."),
                             {Length{spindle_.clampingOut}}},
                            {{"clamping_out", spindle_.clampingOut}},
                            At(out, 0),
                            {billet_->body().name}});
  }

  const Setup& setup_;
  bool isSub_;
  const Spindle& spindle_;
  const HalfSection* billet_;
  const HalfSection* jaw_;
  const HalfSection* clamp_;
  bool hasCenter_;
};

}  // namespace

void CheckReach(const Setup& setup, const HalfSections& sections, Collector& findings) {
  for (const bool isSub : {false, true}) Held(setup, sections, isSub).Check(findings);
}

}  // namespace vanzet::check
