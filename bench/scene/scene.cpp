#include "scene/scene.h"

#include <algorithm>
#include <cmath>

#include "devices/kinds.h"
#include "modeller/measures.h"
#include "scene/bodies.h"
#include "scene/centre_hole.h"
#include "scene/device_text.h"
#include "scene/equipment.h"
#include "scene/placing.h"
#include "scene/profile.h"
#include "scene/steady_rest.h"

namespace vanzet::scene {
namespace {

constexpr double kGap = 50;  // millimetres between spindles whose distance is not known

constexpr const char* kNames[] = {"main", "sub"};

/// Puts the name of a thing before the fault about it.
template <class Value>
Result<Value> PrefixFault(const std::string& what, Result<Value> result) {
  if (result) return result;
  Fault fault = result.fault();
  fault.text = what + ": " + fault.text;
  return fault;
}

struct Part {
  Kind kind;
  bool isSub = false;
};

class Maker {
 public:
  Maker(Equipment equipment, const project::Definition& definition, const Sources& sources)
      : definition_(definition), sources_(sources), equipment_(std::move(equipment)) {}

  Result<Scene> Make() {
    VANZET_DO(AddMain());
    VANZET_DO(AddCenter());
    VANZET_DO(AddSub());
    scene_.missing = std::move(missing_);
    return std::move(scene_);
  }

 private:
  /// Takes over a thing that was made; one that could not be made is missing, and the rest goes on.
  template <class Thing>
  Result<void> Take(Part part, Result<std::optional<Thing>> made, std::optional<Thing>& thing) {
    if (made) {
      thing = std::move(*made);
    } else if (made.fault().kind == FaultKind::kSystem) {
      return made.fault();
    } else {
      missing_.push_back({part.kind, part.isSub, made.fault()});
    }
    return {};
  }

  Result<void> TakeDevice(Part part, std::size_t operation, const DeviceParams& params,
                          std::optional<DeviceText>& device) {
    if (sources_.hasDevicesByValues && !devices::IsOwn(params.type)) {
      // Text and values have the same origin, and the text would have its markers there.
      if (const auto body = DeviceBody(params)) device = DeviceText{*body, {0, 0, 0}, {0, 0, 0}, 0};
      return {};
    }
    return Take(part, ReadDeviceText(definition_, operation, sources_.exchange), device);
  }

  Result<SpindleThings> ThingsOf(std::size_t spindle) {
    const std::size_t clamp = 5 + 2 * spindle;
    const std::string of = " of the " + std::string(kNames[spindle]) + " spindle";
    const Spindle& defined = equipment_.spindles[spindle];
    const bool isSub = spindle == 1, hasCenter = isSub && equipment_.isCenterInSub;
    SpindleThings things;
    if (!hasCenter) VANZET_DO(TakeDevice({Kind::kClamp, isSub}, clamp, defined.clamp.params, things.clamp));
    // Without a jaw the definition has a stand-by one for the simulation.
    const bool hasJaw = things.clamp && defined.jaw.params.type != 0;
    if (hasJaw) VANZET_DO(TakeDevice({Kind::kJaw, isSub}, clamp + 1, defined.jaw.params, things.jaw));
    VANZET_DO(Take({Kind::kBillet, isSub}, PrefixFault("the billet" + of, BilletOf(defined.billet)),
                   things.billet));
    VANZET_DO(Take({Kind::kFinishPart, isSub},
                   PrefixFault("the finish part" + of, BodyOf(defined.finishPart, sources_)),
                   things.finishPart));
    if (things.billet) things.billetProfile = ProfileOf(defined.billet, sources_);
    if (things.finishPart) things.finishPartProfile = ProfileOf(defined.finishPart, sources_);
    return things;
  }

  /// A billet whose extents are known: places are computed from them later.
  Result<std::optional<modeller::Body>> BilletOf(const Billet& defined) const {
    VANZET_TRY(auto billet, BodyOf(defined, sources_));
    if (billet) VANZET_DO(modeller::Extents(*billet));
    return billet;
  }

  Result<void> AddMain() {
    VANZET_TRY(const SpindleThings things, ThingsOf(0));
    scene_ = PlaceSpindle(equipment_.spindles[0], things, kNames[0]);
    stations_ = StationsOf(equipment_.spindles[0], things);
    mainBillet_ = things.billet;
    return equipment_.usesSteadyRest ? AddSteadyRest(things) : Result<void>();
  }

  Result<void> AddSteadyRest(const SpindleThings& things) {
    const FreeLength free = {stations_.holderFront, stations_.stockFront};
    std::optional<modeller::Body> rest;
    const double radius = RestedRadius(equipment_.spindles[0], things);
    auto made = SteadyRestBody(sources_.steadyRest, radius);
    if (!made) {
      return Take({Kind::kSteadyRest},
                  PrefixFault<std::optional<modeller::Body>>("the steady rest", made.fault()), rest);
    }
    geometry::Matrix place;
    place.Translate(SteadyRestPlace(sources_.steadyRest, free), 0, 0);
    scene_.bodies.push_back({"steady rest", Kind::kSteadyRest, *made, place});
    return {};
  }

  Result<void> AddCenter() {
    std::optional<DeviceText> text;
    VANZET_DO(TakeDevice({Kind::kCenter}, equipment_.isCenterInSub ? 7 : 9, equipment_.center.params, text));
    if (!text) return {};
    const double bore = mainBillet_ ? CentreHoleRadius(*mainBillet_) : 0;
    const double tip = stations_.stockFront - SeatDepth(*text, bore);
    SceneBody center{"center", Kind::kCenter, text->body, FacingFrom(tip + text->socket.x)};
    center.seats = Seats{text->plug, text->socket};
    center.exact = ExactBody(equipment_.center.params, center.body);
    if (center.exact) center.profile = ProfileOf(equipment_.center.params);
    scene_.bodies.push_back(std::move(center));
    return {};
  }

  Result<void> AddSub() {
    VANZET_TRY(const SpindleThings things, ThingsOf(1));
    Scene sub = PlaceSpindle(equipment_.spindles[1], things, kNames[1]);
    if (sub.bodies.empty()) return {};
    VANZET_TRY(const double datum, SubDatum(sub));
    scene_.subDatum = datum;
    const geometry::Matrix facing = FacingFrom(datum);
    for (SceneBody& body : sub.bodies) {
      body.placement.Multiply(facing);
      scene_.bodies.push_back(std::move(body));
    }
    for (Mark& mark : sub.marks) {
      for (geometry::Point3d& point : mark.points) point = facing.Transform(point);
      scene_.marks.push_back(std::move(mark));
    }
    return {};
  }

  /// The datum of the sub spindle. The fronts of the two billets are as far apart as the origins; when that
  /// distance is 0 the sub spindle keeps a gap.
  Result<double> SubDatum(const Scene& sub) const {
    const double main = equipment_.spindles[0].origin, own = equipment_.spindles[1].origin;
    if (main != own) return main + std::abs(own - main) + own;
    VANZET_TRY(const double foremost, Foremost(sub.bodies));
    if (scene_.bodies.empty()) return foremost;
    VANZET_TRY(const double opposite, Foremost(scene_.bodies));
    return opposite + kGap + foremost;
  }

  static Result<double> Foremost(const std::vector<SceneBody>& bodies) {
    double foremost = -1e9;
    for (const SceneBody& body : bodies) {
      VANZET_TRY(const auto box, PrefixFault(body.name, ExtentsOf(body)));
      foremost = std::max(foremost, box.max.x);
    }
    return foremost;
  }

  const project::Definition& definition_;
  const Sources& sources_;
  Equipment equipment_;
  Scene scene_;
  std::vector<MissingBody> missing_;
  Stations stations_{};  ///< of the main spindle
  std::optional<modeller::Body> mainBillet_;
};

}  // namespace

modeller::Colour ColourOf(Kind kind) {
  switch (kind) {
    case Kind::kClamp: return {0.55, 0.60, 0.66};
    case Kind::kJaw: return {0.86, 0.68, 0.34};
    case Kind::kCenter: return {0.42, 0.62, 0.55};
    case Kind::kSteadyRest: return {0.50, 0.52, 0.62};
    case Kind::kBillet: return {0.42, 0.62, 0.88};
    case Kind::kFinishPart: return {0.90, 0.45, 0.28};
  }
  return {};
}

Result<Scene> MakeScene(const project::Definition& definition, const Sources& sources) {
  return MakeScene(ReadEquipment(definition), definition, sources);
}

Result<Scene> MakeScene(const Equipment& equipment, const project::Definition& definition,
                        const Sources& sources) {
  return Maker(equipment, definition, sources).Make();
}

}  // namespace vanzet::scene
