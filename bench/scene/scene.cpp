#include "scene/scene.h"

#include <algorithm>
#include <cmath>

#include "modeller/measures.h"
#include "scene/bodies.h"
#include "scene/centre_hole.h"
#include "scene/device_text.h"
#include "scene/equipment.h"
#include "scene/placing.h"

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

class Maker {
 public:
  Maker(const project::Definition& definition, const Sources& sources)
      : definition_(definition), sources_(sources), equipment_(ReadEquipment(definition)) {}

  Result<Scene> Make() {
    VANZET_DO(AddMain());
    VANZET_DO(AddCenter());
    VANZET_DO(AddSub());
    return std::move(scene_);
  }

 private:
  Result<SpindleThings> ThingsOf(std::size_t spindle) {
    const std::size_t clamp = 5 + 2 * spindle;
    const std::string of = " of the " + std::string(kNames[spindle]) + " spindle";
    const bool hasCenter = spindle == 1 && equipment_.isCenterInSub;
    SpindleThings things;
    if (!hasCenter) {
      VANZET_TRY(things.clamp, ReadDeviceText(definition_, clamp, sources_.exchange));
    }
    const Spindle& defined = equipment_.spindles[spindle];
    // Without a jaw the definition has a stand-by one for the simulation.
    if (things.clamp && defined.jaw.params.type != 0) {
      VANZET_TRY(things.jaw, ReadDeviceText(definition_, clamp + 1, sources_.exchange));
    }
    VANZET_TRY(things.billet, PrefixFault("the billet" + of, BodyOf(defined.billet, sources_)));
    // Found once here, where a failure is a fault; places are computed from it later.
    if (things.billet) VANZET_DO(PrefixFault("the billet" + of, modeller::Extents(*things.billet)));
    VANZET_TRY(things.finishPart, PrefixFault("the finish part" + of, BodyOf(defined.finishPart, sources_)));
    return things;
  }

  Result<void> AddMain() {
    VANZET_TRY(const SpindleThings things, ThingsOf(0));
    scene_ = PlaceSpindle(equipment_.spindles[0], things, kNames[0]);
    stockFront_ = StationsOf(equipment_.spindles[0], things).stockFront;
    if (things.billet) centreHole_ = CentreHoleRadius(*things.billet);
    return {};
  }

  Result<void> AddCenter() {
    VANZET_TRY(const auto text,
               ReadDeviceText(definition_, equipment_.isCenterInSub ? 7 : 9, sources_.exchange));
    if (!text) return {};
    const double tip = stockFront_ - SeatDepth(*text, centreHole_);
    SceneBody center{"center", Kind::kCenter, text->body, FacingFrom(tip + text->socket.x)};
    center.exact = ExactBody(equipment_.center.params, center.body);
    scene_.bodies.push_back(std::move(center));
    return {};
  }

  Result<void> AddSub() {
    VANZET_TRY(const SpindleThings things, ThingsOf(1));
    Scene sub = PlaceSpindle(equipment_.spindles[1], things, kNames[1]);
    if (sub.bodies.empty()) return {};
    VANZET_TRY(const double datum, SubDatum(sub));
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
  double stockFront_ = 0;
  double centreHole_ = 0;  ///< the radius of the bore in the front of the main billet
};

}  // namespace

modeller::Colour ColourOf(Kind kind) {
  switch (kind) {
    case Kind::kClamp: return {0.55, 0.60, 0.66};
    case Kind::kJaw: return {0.86, 0.68, 0.34};
    case Kind::kCenter: return {0.42, 0.62, 0.55};
    case Kind::kBillet: return {0.42, 0.62, 0.88};
    case Kind::kFinishPart: return {0.90, 0.45, 0.28};
  }
  return {};
}

Result<Scene> MakeScene(const project::Definition& definition, const Sources& sources) {
  return Maker(definition, sources).Make();
}

}  // namespace vanzet::scene
