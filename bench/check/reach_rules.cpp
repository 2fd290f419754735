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
constexpr double kClose = 1e-6;            // millimetres: lengths that are the same
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
    CheckClampingOut(findings);
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

  /// The diameter of a billet that is clamped along a length; 0 for any other.
  double ClampedDiameter() const {
    if (Holder() == nullptr || HasFaceDriver()) return 0;
    return std::max(2 * scene::DefinedHeldRadius(spindle_), 0.0);
  }

  /// The length along which the holder and the billet are beside each other; below 0, how far they are apart.
  double ClampedLength() const {
    const Box holder = Holder()->box(), billet = billet_->box();
    return std::min(Front(holder), Front(billet)) - std::max(Back(holder), Back(billet));
  }

  void CheckClampedLength(Collector& findings) const {
    const double diameter = ClampedDiameter();
    if (diameter <= 0 || ClampedLength() >= diameter * kLeastClamped - kTolerance) return;
    const double clamped = std::max(ClampedLength(), 0.0);
    findings.Add("EQ-302",
                 {Place(),
                  {Translatable("The billet is clamped along %1, which is under a third of the diameter %2."),
                   {Length{clamped}, Length{diameter}}},
                  {{"length", clamped}, {"diameter", diameter}},
                  At(std::min(Front(Holder()->box()), Front(billet_->box())), diameter / 2),
                  {Holder()->body().name, billet_->body().name},
                  LongerClampingChange()});
  }

  /// The clamping out with which enough is clamped; none where the holder has no room for it.
  std::optional<Change> LongerClampingChange() const {
    if (ClampedDiameter() <= 0) return {};
    const double more = ClampedDiameter() * kLeastClamped - ClampedLength();
    const double room = Back(billet_->box()) - Back(Holder()->box());
    const double to = spindle_.clampingOut - more;
    if (spindle_.clampingOut <= 0 || to <= 0 || room < more) return {};
    return Change{kClampingOut, spindle_.clampingOut, to};
  }

  void CheckOverhang(Collector& findings) const {
    if (Holder() == nullptr || OverhangDiameter() <= 0) return;
    const double overhang = Front(billet_->box()) - Front(Holder()->box());
    const double most = kCentredOverhang * OverhangDiameter(), free = kFreeOverhang * OverhangDiameter();
    const bool hasRest = !isSub_ && setup_.equipment.usesSteadyRest;
    if (overhang > most + kClose && !hasRest) {
      Overhangs(
          Translatable("The billet reaches %1 out, which is %2 times its diameter, without a steady rest."),
          overhang, most, findings);
    } else if (overhang > free + kClose && !hasCenter_ && !HasFaceDriver()) {
      Overhangs(Translatable("The billet reaches %1 out, which is %2 times its diameter, without a center."),
                overhang, free, findings);
    }
  }

  void Overhangs(const char* english, double overhang, double most, Collector& findings) const {
    const double times = overhang / OverhangDiameter();
    findings.Add("EQ-303", {Place(),
                            {english, {Length{overhang}, Number{times}}},
                            {{"overhang", overhang}, {"times", times}},
                            At(Front(billet_->box()), 0),
                            {billet_->body().name},
                            ClampingOutLessBy(overhang - most)});
  }

  /// The clamping out with which the billet reaches out less; none where nothing has room for its end.
  std::optional<Change> ClampingOutLessBy(double less) const {
    const double rear = Back(billet_->box()), to = spindle_.clampingOut - less;
    const bool isThrough = clamp_ != nullptr && rear < Back(clamp_->box());
    if (spindle_.clampingOut <= 0 || to <= 0 || (!isThrough && rear - Back(Holder()->box()) < less))
      return {};
    return Change{kClampingOut, spindle_.clampingOut, to};
  }

  /// The diameter of what reaches out: that of the clamping, or the billet's when it is clamped inside.
  double OverhangDiameter() const {
    const double held = 2 * scene::DefinedHeldRadius(spindle_);
    return spindle_.clampsInside || held <= 0 ? 2 * billet_->box().max.y : held;
  }

  double Datum() const { return (isSub_ ? -setup_.scene.subDatum : 0) + spindle_.origin; }

  void CheckDatum(Collector& findings) const {
    const Box billet = billet_->box();
    if (Datum() <= Front(billet) + kTolerance && Datum() >= Back(billet) - kTolerance) return;
    const double own = Datum() - spindle_.origin;
    findings.Add("EQ-304", {Where::kDatum,
                            {Translatable("The origin is outside of the billet, which is from %1 to %2."),
                             {Length{Back(billet) - own}, Length{Front(billet) - own}}},
                            {{"origin", spindle_.origin}},
                            At(Datum(), 0),
                            {billet_->body().name},
                            FrontAllowanceChange()});
  }

  /// A cylinder has its origin at its front face, unless an allowance takes that away.
  std::optional<Change> FrontAllowanceChange() const {
    const scene::Billet& billet = spindle_.billet;
    if (billet.type != scene::billet_type::kCylinder || billet.frontAllowance >= 0) return {};
    return Change{Translatable("the front allowance"), billet.frontAllowance, 0};
  }

  void CheckClampingOut(Collector& findings) const {
    // A face driver holds the rear face itself.
    const double held = HasFaceDriver() ? -kTolerance : kTolerance;
    const double rear = Back(billet_->box()), out = Datum() - spindle_.clampingOut;
    if (spindle_.clampingOut <= 0 || out > rear + held) return;
    findings.Add("EQ-304", {Where::kDatum,
                            {Translatable("The clamping out of %1 leaves nothing of the billet to be held."),
                             {Length{spindle_.clampingOut}}},
                            {{"clamping_out", spindle_.clampingOut}},
                            At(out, 0),
                            {billet_->body().name},
                            HasFaceDriver() ? Change{kClampingOut, spindle_.clampingOut, Datum() - rear}
                                            : LongerClampingChange()});
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
