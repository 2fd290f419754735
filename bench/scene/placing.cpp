#include "scene/placing.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "devices/kinds.h"
#include "geometry/numerics.h"
#include "modeller/body.h"
#include "modeller/measures.h"
#include "scene/bodies.h"
#include "scene/profile.h"

namespace vanzet::scene {
namespace {

using geometry::Box3d;
using geometry::Matrix;
using geometry::Point3d;

constexpr int kX = 1, kY = 2;

/// The extents of a body; a point at the origin for a body without any.
Box3d BoxOf(const modeller::Body& body) {
  const auto box = modeller::Extents(body);
  return box ? *box : Box3d({0, 0, 0}, {0, 0, 0});
}

double RadiusOf(const modeller::Body& body) {
  const Box3d box = BoxOf(body);
  return std::max(box.max.y, -box.min.y);
}

Matrix MovedBy(double x, double y = 0, double z = 0) {
  Matrix matrix;
  matrix.Translate(x, y, z);
  return matrix;
}

/// How far the jaws reach out from the face of their device.
double JawReach(const SpindleThings& things) {
  if (!things.jaw) return 0;
  const double origin = things.jaw->reach - things.jaw->plug.x;
  return std::max(0.0, origin + BoxOf(things.jaw->body).max.x);
}

/// The placement of a jaw in the spindle's space: its foot is on the face, its holding side on the held
/// radius.
Matrix JawPlacement(const Spindle& spindle, const SpindleThings& things, double face, int jaw) {
  const DeviceText& text = *things.jaw;
  const Box3d box = BoxOf(text.body);
  const double holdingSide = spindle.clampsInside ? box.max.z : box.min.z;
  Matrix matrix = MovedBy(face + text.reach - text.plug.x, 0, HeldRadius(spindle, things) - holdingSide);
  // The text has the jaw's height along z; the first jaw points up.
  matrix.Rotate(-1, 0, kX);
  if (jaw > 0) matrix.Rotate(2 * std::numbers::pi * jaw / spindle.jaws, kX);
  return matrix;
}

Mark Circle(double x, double radius) {
  constexpr int kCorners = 72;
  Mark mark;
  for (int i = 0; i <= kCorners; ++i) {
    const double angle = 2 * std::numbers::pi * i / kCorners;
    mark.points.emplace_back(x, radius * std::cos(angle), radius * std::sin(angle));
  }
  return mark;
}

/// The marks of the drawing: a cross in a small circle at the origin translation, and a circle around the
/// billet where it leaves the device that holds it, for which the drawing has a line.
std::vector<Mark> MarksOf(const Spindle& spindle, const SpindleThings& things) {
  constexpr double kArm = 15, kSmallCircle = 6, kBeyond = 1.1;
  std::vector<Mark> marks;
  const double origin = spindle.origin;
  if (origin != 0) {
    marks.push_back({{{origin - kArm, 0, 0}, {origin + kArm, 0, 0}}});
    marks.push_back({{{origin, -kArm, 0}, {origin, kArm, 0}}});
    marks.push_back({{{origin, 0, -kArm}, {origin, 0, kArm}}});
    marks.push_back(Circle(origin, kSmallCircle));
  }
  if (spindle.clampingOut > 0) {
    const double radius = HeldRadius(spindle, things) * kBeyond;
    marks.push_back(Circle(origin - spindle.clampingOut, radius));
  }
  return marks;
}

/// "chuck", "face driver"; a device whose values are missing has its 3D text alone.
std::string WordsOf(const DeviceParams& clamp) {
  const devices::Kind* const kind = devices::KindOf(clamp.type);
  if (kind == nullptr) return "clamp device";
  std::string words(kind->word);
  std::ranges::replace(words, '_', ' ');
  return words;
}

class Placer {
 public:
  Placer(const Spindle& spindle, const SpindleThings& things, std::string name)
      : spindle_(spindle), things_(things), name_(std::move(name)), stations_(StationsOf(spindle, things)) {}

  Scene Place() {
    if (things_.clamp) AddClamp();
    for (int jaw = 0; things_.jaw && jaw < spindle_.jaws; ++jaw) AddJaw(jaw);
    if (things_.billet) AddBillet();
    if (things_.finishPart) AddFinishPart();
    scene_.marks = MarksOf(spindle_, things_);
    return std::move(scene_);
  }

 private:
  SceneBody& Add(const std::string& what, Kind kind, const modeller::Body& body, const Matrix& placement) {
    return scene_.bodies.emplace_back(SceneBody{name_ + " " + what, kind, body, placement});
  }

  Matrix AtFront() const { return MovedBy(spindle_.origin); }

  static void TakeValues(const DeviceParams& params, SceneBody& body) {
    body.exact = ExactBody(params, body.body);
    if (body.exact) body.profile = ProfileOf(params);
  }

  void AddClamp() {
    const DeviceText& clamp = *things_.clamp;
    SceneBody& body = Add(WordsOf(spindle_.clamp.params), Kind::kClamp, clamp.body,
                          MovedBy(stations_.face - clamp.socket.x));
    body.seats = Seats{clamp.plug, clamp.socket};
    TakeValues(spindle_.clamp.params, body);
  }

  void AddJaw(int jaw) {
    const DeviceText& text = *things_.jaw;
    SceneBody& body = Add("jaw " + std::to_string(jaw + 1), Kind::kJaw, text.body,
                          JawPlacement(spindle_, things_, stations_.face, jaw));
    body.seats = Seats{text.plug, text.socket};
    TakeValues(spindle_.jaw.params, body);
  }

  void AddBillet() {
    SceneBody& body = Add("billet", Kind::kBillet, *things_.billet, AtFront());
    body.profile = things_.billetProfile;
    body.isShown = spindle_.billet.isShown;
    body.isSeenThrough = things_.finishPart.has_value();
    if (spindle_.billet.type == billet_type::kSolid) body.solid = spindle_.billet.solid;
  }

  void AddFinishPart() {
    SceneBody& body = Add("finish part", Kind::kFinishPart, *things_.finishPart, AtFront());
    body.profile = things_.finishPartProfile;
    if (spindle_.finishPart.type == finish_part_type::kSolid) body.solid = spindle_.finishPart.solid;
  }

  const Spindle& spindle_;
  const SpindleThings& things_;
  std::string name_;
  Stations stations_;
  Scene scene_;
};

}  // namespace

double DefinedHeldRadius(const Spindle& spindle) {
  const Billet& billet = spindle.billet;
  const bool isCylinder = billet.type == billet_type::kCylinder;
  if (spindle.clampsInside && isCylinder && billet.innerDiameter > 0) return billet.innerDiameter / 2;
  return std::max(billet.clampDiameter, 0.0) / 2;
}

double HeldRadius(const Spindle& spindle, const SpindleThings& things) {
  constexpr double kOfDevice = 1.0 / 3;
  const double defined = DefinedHeldRadius(spindle);
  if (defined > 0) return defined;
  if (things.billet) return RadiusOf(*things.billet);
  return things.clamp ? RadiusOf(things.clamp->body) * kOfDevice : 0;
}

double RestedRadius(const Spindle& spindle, const SpindleThings& things) {
  if (spindle.clampsInside && things.billet) return RadiusOf(*things.billet);
  return HeldRadius(spindle, things);
}

Stations StationsOf(const Spindle& spindle, const SpindleThings& things) {
  const double front = spindle.origin;
  Stations stations{front, front, front};
  if (spindle.clampingOut > 0) {
    stations.face = front - spindle.clampingOut - JawReach(things);
  } else {
    const double allowance = spindle.billet.type == billet_type::kCylinder ? spindle.billet.rearAllowance : 0;
    stations.face = front - spindle.billet.partLength - allowance;
  }
  stations.holderFront = stations.face + JawReach(things);
  // A billet that is missing still has its front where the definition says.
  const bool isMissing =
      spindle.billet.type == billet_type::kFigures || spindle.billet.type == billet_type::kSolid;
  const double foremost = things.billet ? BoxOf(*things.billet).max.x : 0;
  stations.stockFront = things.billet || isMissing ? front + foremost : stations.holderFront;
  return stations;
}

Scene PlaceSpindle(const Spindle& spindle, const SpindleThings& things, const std::string& name) {
  return Placer(spindle, things, name).Place();
}

Matrix FacingFrom(double x) {
  Matrix matrix;
  matrix.Rotate(0, -1, kY);
  matrix.Translate(x, 0, 0);
  return matrix;
}

Result<Box3d> ExtentsOf(const SceneBody& body) {
  VANZET_TRY(const auto placed, modeller::PlaceBody(body.body, body.placement));
  return modeller::Extents(placed);
}

}  // namespace vanzet::scene
