#include <algorithm>
#include <optional>

#include "base/translations.h"
#include "check/changes.h"
#include "check/clash.h"
#include "check/region_measures.h"
#include "check/rules.h"
#include "check/spindle_devices.h"
#include "section/section.h"

namespace vanzet::check {
namespace {

using geometry::Box;
using geometry::Region;
using scene::Kind;

constexpr bool kMain = false, kSub = true;

std::vector<std::string> NamesOf(const HalfSection& a, const HalfSection& b) {
  return {a.body().name, b.body().name};
}

Collector::Details DetailsOf(Where where, const Clash& clash, const HalfSection& a, const HalfSection& b,
                             const char* english) {
  return {
      where,     {english, {Length{clash.depth}}}, {{"overlap", clash.depth}}, clash.place, NamesOf(a, b), {},
      clash.area};
}

/// The jaws of a spindle and what they hold.
class Grip {
 public:
  Grip(const Setup& setup, const HalfSections& sections, std::size_t spindle)
      : spindle_(setup.equipment.spindles[spindle]),
        where_(WhereOf(spindle)),
        jaws_(sections.Jaws(spindle == 1)),
        billet_(sections.Find(Kind::kBillet, spindle == 1)) {}

  /// Of jaws that differ the worst one is reported.
  void Check(Collector& findings) const {
    if (billet_ == nullptr) return;
    std::optional<Collector::Details> cut, gap;
    for (const HalfSection* const jaw : Compared()) {
      auto found = CutOf(*jaw);
      Keep(found ? cut : gap, found ? std::move(found) : GapOf(*jaw));
    }
    if (cut) findings.Add("EQ-201", *std::move(cut));
    if (gap) findings.Add("EQ-202", *std::move(gap));
  }

 private:
  /// All jaws hold a turned billet alike.
  std::vector<const HalfSection*> Compared() const {
    if (!billet_->IsTurned() || jaws_.size() < 2) return jaws_;
    return {jaws_.front()};
  }

  /// The clamping side of a jaw is a length at one radius.
  double Radius(const HalfSection& jaw) const {
    return spindle_.clampsInside ? jaw.box().max.y : jaw.box().min.y;
  }

  static void Keep(std::optional<Collector::Details>& worst, std::optional<Collector::Details> found) {
    if (found && (!worst || found->values.front().number > worst->values.front().number))
      worst = std::move(found);
  }

  std::optional<Collector::Details> CutOf(const HalfSection& jaw) const {
    const auto clash = DeepestClash(&jaw, billet_);
    if (!clash) return {};
    const Box common = section::BoxOf(clash->area.region);
    const double radial = spindle_.clampsInside ? Radius(jaw) - common.min.y : common.max.y - Radius(jaw);
    // A jaw that meets a shoulder of the billet with its front cuts along the axis.
    const bool isRadial = radial < common.Width();
    const double overlap = isRadial ? radial : clash->depth;
    Collector::Details details =
        DetailsOf(where_, *clash, jaw, *billet_, Translatable("The jaw cuts %1 into the billet."));
    details.sentence.terms = {Length{overlap}};
    details.values = {{"overlap", overlap}};
    details.change = isRadial ? DiameterChange(spindle_.clampsInside ? -overlap : overlap)
                              : ClampingOutChange(spindle_, clash->area);
    return details;
  }

  std::optional<Collector::Details> GapOf(const HalfSection& jaw) const {
    const Region& billet = billet_->At(jaw.Angle());
    const Box& reach = jaw.box();
    const Region held = Between(billet, reach.min.x, reach.max.x);
    if (held.loops.empty()) return {};
    const Box box = section::BoxOf(held);
    const double gap = spindle_.clampsInside ? box.min.y - Radius(jaw) : Radius(jaw) - box.max.y;
    if (gap <= SectionTolerance(jaw, *billet_)) return {};
    return Collector::Details{
        where_,
        {Translatable("The jaw does not touch the billet: a gap of %1 is left."), {Length{gap}}},
        {{"gap", gap}},
        geometry::Point((box.min.x + box.max.x) / 2, Radius(jaw)),
        NamesOf(jaw, *billet_),
        DiameterChange(spindle_.clampsInside ? gap : -gap)};
  }

  /// The clamp diameter is a value of its own where the billet is a solid.
  std::optional<Change> DiameterChange(double radial) const {
    if (spindle_.billet.type != scene::billet_type::kSolid) return {};
    const double diameter = spindle_.billet.clampDiameter;
    return Change{Translatable("the clamp diameter"), diameter, diameter + 2 * radial};
  }

  const scene::Spindle& spindle_;
  Where where_;
  std::vector<const HalfSection*> jaws_;
  const HalfSection* billet_;
};

void CheckDeviceInBillet(const Setup& setup, const HalfSections& sections, bool isSub, Collector& findings) {
  const HalfSection* const clamp = sections.Find(Kind::kClamp, isSub);
  const HalfSection* const billet = sections.Find(Kind::kBillet, isSub);
  const auto clash = DeepestClash(clamp, billet);
  if (!clash) return;
  auto details = DetailsOf(isSub ? Where::kSub : Where::kMain, *clash, *clamp, *billet,
                           Translatable("The clamp device and the billet cut %1 into each other."));
  details.change = ClampingOutChange(setup.equipment.spindles[isSub ? 1 : 0], clash->area);
  findings.Add("EQ-203", std::move(details));
}

void CheckFinishPart(const Setup& setup, const HalfSections& sections, bool isSub, Collector& findings) {
  const Where own = isSub ? Where::kSub : Where::kMain;
  const HalfSection* const part = sections.Find(Kind::kFinishPart, isSub);
  if (part == nullptr) return;
  const auto check = [&](const HalfSection* device, Where where, const char* english) {
    const auto clash = DeepestClash(device, part);
    if (!clash) return;
    auto details = DetailsOf(where, *clash, *device, *part, english);
    if (where == own)
      details.change = ClampingOutChange(setup.equipment.spindles[isSub ? 1 : 0], clash->area);
    findings.Add("EQ-204", std::move(details));
  };
  check(sections.Find(Kind::kClamp, isSub), own,
        Translatable("The clamp device cuts %1 into the finished part."));
  const std::vector<const HalfSection*> jaws = sections.Jaws(isSub);
  for (const HalfSection* const jaw : jaws) {
    check(jaw, own, Translatable("The jaw cuts %1 into the finished part."));
    if (part->IsTurned()) break;
  }
  if (!isSub)
    check(sections.Find(Kind::kCenter), Where::kCenter,
          Translatable("The center cuts %1 into the finished part."));
}

/// The bodies of a side that can meet the other one: of the jaws the upright one stands for all, since
/// spindles turn.
std::vector<const HalfSection*> EquipmentOf(const HalfSections& sections, bool isSub) {
  std::vector<const HalfSection*> all = {sections.Find(Kind::kClamp, isSub),
                                         sections.Find(Kind::kJaw, isSub)};
  all.push_back(isSub ? sections.Find(Kind::kCenter) : sections.Find(Kind::kSteadyRest));
  std::erase(all, nullptr);
  return all;
}

Where WhereOf(const HalfSection& body) {
  if (body.body().kind == Kind::kCenter) return Where::kCenter;
  return body.IsSub() ? Where::kSub : Where::kMain;
}

void CheckSides(const Setup& setup, const HalfSections& sections, Collector& findings) {
  for (const HalfSection* const main : EquipmentOf(sections, kMain)) {
    for (const HalfSection* const sub : EquipmentOf(sections, kSub)) {
      const auto clash = DeepestClashInSpace(main, sub);
      if (!clash) continue;
      Collector::Details details =
          DetailsOf(WhereOf(*sub), *clash, *main, *sub,
                    Translatable("The bodies '%2' and '%3' cut %1 into each other."));
      details.sentence.terms.insert(details.sentence.terms.end(), {main->body().name, sub->body().name});
      if (sub->IsSub()) details.change = SubOriginChange(setup.equipment, clash->area);
      findings.Add("EQ-205", std::move(details));
    }
  }
}

void CheckCenter(const HalfSections& sections, Collector& findings) {
  const HalfSection* const center = sections.Find(Kind::kCenter);
  const HalfSection* const billet = sections.Find(Kind::kBillet);
  if (center == nullptr || billet == nullptr) return;
  if (const auto clash = DeepestClash(center, billet)) {
    return findings.Add("EQ-206", DetailsOf(Where::kCenter, *clash, *center, *billet,
                                            Translatable("The center cuts %1 into the billet.")));
  }
  const auto gap = GapBetween(*center, *billet);
  if (!gap) return;
  findings.Add("EQ-206",
               {Where::kCenter,
                {Translatable("The center does not touch the billet: a gap of %1 is left."), {Length{*gap}}},
                {{"gap", *gap}},
                geometry::Point(center->box().min.x, 0),
                NamesOf(*center, *billet)});
}

void CheckPartInBillet(const Setup& setup, const HalfSections& sections, bool isSub, Collector& findings) {
  const HalfSection* const part = sections.Find(Kind::kFinishPart, isSub);
  const HalfSection* const billet = sections.Find(Kind::kBillet, isSub);
  if (part == nullptr || billet == nullptr) return;
  auto excess = ExcessOf(*part, *billet);
  if (!excess) return;
  const auto change = CylinderChange(setup.equipment.spindles[isSub ? 1 : 0], *billet, excess->area);
  findings.Add("EQ-301", {isSub ? Where::kSub : Where::kMain,
                          {Translatable("The finished part reaches out of the billet, at most %1."),
                           {Length{excess->depth}}},
                          {{"volume", excess->volume}, {"overlap", excess->depth}},
                          excess->place,
                          NamesOf(*part, *billet),
                          change,
                          std::move(excess->area)});
}

}  // namespace

void CheckClashes(const Setup& setup, const HalfSections& sections, Collector& findings) {
  for (const bool isSub : {kMain, kSub}) {
    Grip(setup, sections, isSub ? 1 : 0).Check(findings);
    CheckDeviceInBillet(setup, sections, isSub, findings);
    CheckFinishPart(setup, sections, isSub, findings);
    CheckPartInBillet(setup, sections, isSub, findings);
  }
  CheckSides(setup, sections, findings);
  CheckCenter(sections, findings);
}

}  // namespace vanzet::check
