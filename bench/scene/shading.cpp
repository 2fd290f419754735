#include "scene/shading.h"

#include <algorithm>
#include <cmath>

namespace vanzet::scene {
namespace {

using geometry::Vector3d;
using modeller::Colour;

// Unit vectors, near enough.
const Vector3d kKey = {-0.45, 0.65, 0.61}, kFill = {0.70, 0.10, 0.71};
const Vector3d kShine = {-0.25, 0.36, 0.90};  // halfway between the key light and the eye

constexpr double kAmbient = 0.34, kKeyShare = 0.52, kFillShare = 0.22;
constexpr double kGloss = 0.22, kGlossPower = 28;

double Part(double value) {
  return std::clamp(value, 0.0, 1.0);
}

}  // namespace

Colour Lit(const Colour& colour, const Vector3d& normal) {
  const Vector3d n = normal.dz < 0 ? -normal : normal;
  const double light =
      kAmbient + kKeyShare * std::max(0.0, Dot(n, kKey)) + kFillShare * std::max(0.0, Dot(n, kFill));
  const double gloss = kGloss * std::pow(std::max(0.0, Dot(n, kShine)), kGlossPower);
  return {Part(colour.red * light + gloss), Part(colour.green * light + gloss),
          Part(colour.blue * light + gloss)};
}

Colour Mixed(const Colour& over, const Colour& under, double share) {
  const auto part = [&](double a, double b) { return a * share + b * (1 - share); };
  return {part(over.red, under.red), part(over.green, under.green), part(over.blue, under.blue)};
}

}  // namespace vanzet::scene
