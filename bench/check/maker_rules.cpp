#include <algorithm>
#include <cmath>
#include <optional>

#include "base/translations.h"
#include "check/rules.h"
#include "check/spindle_devices.h"
#include "devices/kinds.h"
#include "scene/placing.h"

namespace vanzet::check {
namespace {

using catalogue::MakerJson;
using scene::Device;
using scene::Spindle;
using show::Part;

/// A figure of a device that is one number.
std::optional<double> FigureOf(const Device& device, const char* key, const Setup& setup) {
  const MakerJson* const figures = setup.shop.maker.Find(device.name);
  if (figures == nullptr || !figures->contains(key)) return {};
  return (*figures)[key].get<double>();
}

struct Interval {
  double least, most;
};
std::optional<Interval> RangeOf(const Device& device, const char* key, const Setup& setup) {
  const MakerJson* const figures = setup.shop.maker.Find(device.name);
  if (figures == nullptr || !figures->contains(key)) return {};
  const MakerJson& range = (*figures)[key];
  return Interval{range[0].get<double>(), range[1].get<double>()};
}

bool HoldsInside(const Spindle& spindle) {
  const devices::Kind* const kind = devices::KindOf(spindle.clamp.params.type);
  if (kind == nullptr || kind->clamping == devices::Clamping::kNotFixed) return spindle.clampsInside;
  return kind->clamping == devices::Clamping::kInside;
}

void CheckRange(const PlacedDevice& placed, const Spindle& spindle, const Setup& setup, Collector& findings) {
  const Device& device = *placed.device;
  const double diameter = 2 * scene::DefinedHeldRadius(spindle);
  const auto range = RangeOf(device, HoldsInside(spindle) ? "clamp_inside" : "clamp_outside", setup);
  if (!range || diameter <= 0 || (diameter >= range->least && diameter <= range->most)) return;
  findings.Add("EQ-401",
               {.where = placed.where,
                .sentence = {Translatable("The device %1 clamps diameters from %2 to %3, but not %4."),
                             {NameOf(device), Length{range->least}, Length{range->most}, Length{diameter}}},
                .values = {{"diameter", diameter}, {"least", range->least}, {"most", range->most}},
                .part = placed.part});
}

void CheckBar(const Spindle& spindle, Where where, const Setup& setup, Collector& findings) {
  const auto most = FigureOf(spindle.clamp, "max_bar_length", setup);
  const double length = spindle.billet.barLength;
  if (!most || length <= *most) return;
  findings.Add("EQ-305", {where,
                          {Translatable("The bar is %1 long; with the device %2 it may have %3."),
                           {Length{length}, NameOf(spindle.clamp), Length{*most}}},
                          {{"length", length}, {"most", *most}},
                          {},
                          {},
                          Change{Translatable("the bar length"), length, *most}});
}

struct Limit {
  const char* key;
  std::optional<double> value;
  const char* english;
  std::optional<Change> (*change)(const Spindle& spindle, double value, double most);
};

std::optional<Change> SpeedChange(const Spindle& /*spindle*/, double value, double most) {
  return Change{Translatable("the job's speed"), value, most, "1/min"};
}

std::optional<Change> ForceChange(const Spindle& /*spindle*/, double value, double most) {
  return Change{Translatable("the job's force"), value, most, "kN"};
}

/// The whole millimetres of a bar that are not too heavy; nothing where these are less than the part.
std::optional<Change> BarChange(const Spindle& spindle, double value, double most) {
  const scene::Billet& billet = spindle.billet;
  const double length = std::floor(billet.barLength * most / value);
  const double part = billet.partLength + billet.frontAllowance + billet.rearAllowance;
  if (billet.barLength <= 0 || length < part) return {};
  return Change{Translatable("the bar length"), billet.barLength, length};
}

void CheckLimits(const PlacedDevice& placed, const Spindle& spindle, std::optional<double> mass,
                 const Setup& setup, Collector& findings) {
  const Device& device = *placed.device;
  const Limit limits[] = {
      {"max_speed", setup.job.speed,
       Translatable("The job's speed of %1 1/min is above the %2 1/min of the device %3."), SpeedChange},
      {"max_force", setup.job.force,
       Translatable("The job's force of %1 kN is above the %2 kN of the device %3."), ForceChange},
      {"max_mass", mass, Translatable("The billet's mass of %1 kg is above the %2 kg of the device %3."),
       BarChange},
  };
  for (const auto& [key, value, english, change] : limits) {
    const auto most = FigureOf(device, key, setup);
    if (!most || !value || *value <= *most) continue;
    findings.Add("EQ-402", {.where = placed.where,
                            .sentence = {english, {Number{*value}, Number{*most}, NameOf(device)}},
                            .values = {{"value", *value}, {"most", *most}},
                            .change = change(spindle, *value, *most),
                            .part = placed.part});
  }
}

}  // namespace

void CheckMakerData(const Setup& setup, const HalfSections& sections, Collector& findings) {
  constexpr double kCubicMillimetres = 1e6;  // in a cubic decimetre
  for (std::size_t i = 0; i < setup.equipment.spindles.size(); ++i) {
    const Spindle& spindle = setup.equipment.spindles[i];
    const Where where = WhereOf(i);
    const HalfSection* const billet = sections.Find(scene::Kind::kBillet, i == 1);
    std::optional<double> mass;
    if (billet != nullptr && billet->IsClosed())
      mass = billet->Volume() / kCubicMillimetres * setup.job.density;
    const PlacedDevice devices[] = {{&spindle.clamp, where, Part::kClamp}, {&spindle.jaw, where, Part::kJaw}};
    for (const PlacedDevice& placed : devices) {
      if (placed.device->params.type == 0) continue;
      CheckRange(placed, spindle, setup, findings);
      CheckLimits(placed, spindle, mass, setup, findings);
    }
    if (spindle.clamp.params.type != 0) CheckBar(spindle, where, setup, findings);
  }
}

}  // namespace vanzet::check
