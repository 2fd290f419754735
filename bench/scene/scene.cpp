#include "scene/scene.h"

#include <algorithm>
#include <cmath>

#include "scene/bodies.h"
#include "scene/device_text.h"
#include "scene/equipment.h"
#include "scene/placing.h"

namespace vanzet::scene {
namespace {

constexpr double kGap = 50;  // millimetres between spindles whose distance is not told

constexpr const char* kNames[] = {"main", "sub"};

/// What a fault is about goes before it.
template <class Value>
Result<Value> About(const std::string& what, Result<Value> result) {
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
    if (const auto added = AddMain(); !added) return added.fault();
    if (const auto added = AddCenter(); !added) return added.fault();
    if (const auto added = AddSub(); !added) return added.fault();
    return std::move(scene_);
  }

 private:
  Result<SpindleThings> ThingsOf(std::size_t spindle) {
    const std::size_t clamp = 5 + 2 * spindle;
    const std::string of = " of the " + std::string(kNames[spindle]) + " spindle";
    const bool hasCenter = spindle == 1 && equipment_.isCenterInSub;
    SpindleThings things;
    if (!hasCenter) {
      auto text = ReadDeviceText(definition_, clamp, sources_.exchange);
      if (!text) return text.fault();
      things.clamp = *text;
    }
    auto jaw = ReadDeviceText(definition_, clamp + 1, sources_.exchange);
    if (!jaw) return jaw.fault();
    if (things.clamp) things.jaw = *jaw;
    const Spindle& told = equipment_.spindles[spindle];
    auto billet = About("the billet" + of, BodyOf(told.billet, sources_));
    if (!billet) return billet.fault();
    things.billet = *billet;
    auto part = About("the finish part" + of, BodyOf(told.finishPart, sources_));
    if (!part) return part.fault();
    things.finishPart = *part;
    return things;
  }

  Result<void> AddMain() {
    const auto things = ThingsOf(0);
    if (!things) return things.fault();
    scene_ = Placed(equipment_.spindles[0], *things, kNames[0]);
    stockFront_ = StationsOf(equipment_.spindles[0], *things).stockFront;
    return {};
  }

  Result<void> AddCenter() {
    const auto text = ReadDeviceText(definition_, equipment_.isCenterInSub ? 7 : 9, sources_.exchange);
    if (!text) return text.fault();
    if (!*text) return {};
    SceneBody center{"center", Kind::kCenter, (*text)->body, FacingFrom(stockFront_ + (*text)->socket.x)};
    center.exact = ExactBody(equipment_.center.params, center.body);
    scene_.bodies.push_back(std::move(center));
    return {};
  }

  Result<void> AddSub() {
    const auto things = ThingsOf(1);
    if (!things) return things.fault();
    Scene sub = Placed(equipment_.spindles[1], *things, kNames[1]);
    if (sub.bodies.empty()) return {};
    const geometry::Matrix facing = FacingFrom(SubDatum(sub));
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

  /// Where the datum of the sub spindle is. The fronts of the two billets are as far apart as the origins;
  /// when that is no distance the sub spindle stands off.
  double SubDatum(const Scene& sub) const {
    const double main = equipment_.spindles[0].origin, own = equipment_.spindles[1].origin;
    if (main != own) return main + std::abs(own - main) + own;
    const double foremost = Foremost(sub.bodies);
    return scene_.bodies.empty() ? foremost : Foremost(scene_.bodies) + kGap + foremost;
  }

  static double Foremost(const std::vector<SceneBody>& bodies) {
    double foremost = -1e9;
    for (const SceneBody& body : bodies) foremost = std::max(foremost, ExtentsOf(body).max.x);
    return foremost;
  }

  const project::Definition& definition_;
  const Sources& sources_;
  Equipment equipment_;
  Scene scene_;
  double stockFront_ = 0;
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
