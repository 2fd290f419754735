#include "scene/steady_rest.h"

#include <algorithm>

#include "modeller/booleans.h"
#include "modeller/sweep.h"

namespace vanzet::scene {
namespace {

using geometry::Kurve;
using geometry::Point;
using modeller::Body;

// Millimetres: what the machine does not say.
constexpr double kRollDiameter = 30, kRoom = 10, kThickness = 25, kWidth = 40;
constexpr double kArmWidth = 0.6;  // of the ring's width

constexpr int kArms = 3;

const modeller::Axis kSpindle = {{0, 0, 0}, {1, 0, 0}};

/// Radii from the axis.
struct Sizes {
  double billet, roll, inner, outer;
};

Sizes SizesOf(const project::SteadyRest& machine, double billetRadius) {
  const double roll = (machine.rollDiameter > 0 ? machine.rollDiameter : kRollDiameter) / 2;
  const double inner = std::max(machine.largestDiameter / 2, billetRadius) + 2 * roll + kRoom;
  return {billetRadius, roll, inner, inner + kThickness};
}

Result<Body> RingOf(const Sizes& sizes) {
  Kurve section;
  section.Start(Point(-kWidth / 2, sizes.inner));
  for (const Point& corner : {Point(kWidth / 2, sizes.inner), Point(kWidth / 2, sizes.outer),
                              Point(-kWidth / 2, sizes.outer), Point(-kWidth / 2, sizes.inner)}) {
    section.Add(corner);
  }
  return modeller::Spin(section, kSpindle, 360);
}

/// The arm that points up, from the billet into the ring, which takes it up. Seen along the axis, its end is
/// a half circle.
Result<Body> ArmOf(const Sizes& sizes) {
  const double middle = sizes.billet + sizes.roll, top = (sizes.inner + sizes.outer) / 2;
  Kurve outline;
  outline.Start(Point(sizes.roll, middle));
  outline.Add(Point(sizes.roll, top));
  outline.Add(Point(-sizes.roll, top));
  outline.Add(Point(-sizes.roll, middle));
  outline.Add(geometry::ACW, Point(sizes.roll, middle), Point(0, middle));
  constexpr double kLength = kWidth * kArmWidth;
  VANZET_TRY(const Body arm, modeller::Extrude(outline, kLength));
  VANZET_TRY(const Body centred, modeller::MoveBody(arm, {0, 0, -kLength / 2}));
  return modeller::TurnBody(centred, {{0, 0, 0}, {0, 1, 0}}, 90);
}

}  // namespace

double SteadyRestPlace(const project::SteadyRest& machine, const FreeLength& free) {
  constexpr double kShare = 2.0 / 3;
  const bool isFree = machine.position > free.from && machine.position < free.to;
  return isFree ? machine.position : free.from + (free.to - free.from) * kShare;
}

Result<Body> SteadyRestBody(const project::SteadyRest& machine, double billetRadius) {
  const Sizes sizes = SizesOf(machine, billetRadius);
  VANZET_TRY(const Body ring, RingOf(sizes));
  VANZET_TRY(const Body whole, ArmOf(sizes));
  VANZET_TRY(const Body arm, modeller::CutBodies({whole}, {ring}));
  std::vector<Body> bodies = {ring};
  for (int i = 0; i < kArms; ++i) {
    VANZET_TRY(const Body turned, modeller::TurnBody(arm, kSpindle, 360.0 * i / kArms));
    bodies.push_back(turned);
  }
  return modeller::JoinBodies(bodies);
}

}  // namespace vanzet::scene
