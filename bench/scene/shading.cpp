#include "scene/shading.h"

#include <algorithm>

namespace vanzet::scene {

using geometry::Vector3d;
using modeller::Colour;

namespace {

double Part(double value) {
  return std::clamp(value, 0.0, 1.0);
}

double PowerOf(double base, int exponent) {
  double power = 1;
  for (; exponent > 0; exponent /= 2, base *= base) {
    if (exponent % 2 == 1) power *= base;
  }
  return power;
}

}  // namespace

std::vector<Drawn> DrawnBodies(const Model& model, const DrawOptions& options) {
  std::vector<Drawn> solid, through;
  for (const ModelBody& body : model.bodies) {
    const BodyLook look = LookAt(options.looks, body.name);
    if (look.isHidden) continue;
    const bool isSeenThrough = body.isSeenThrough || look.isSeenThrough;
    const Colour colour =
        look.isMarked ? MixColours(options.style.marked, body.colour, shading::kMarkShare) : body.colour;
    (isSeenThrough ? through : solid).push_back({&body, colour, isSeenThrough});
  }
  solid.insert(solid.end(), through.begin(), through.end());
  return solid;
}

Colour MixColours(const Colour& over, const Colour& under, double share) {
  const auto part = [&](double a, double b) { return a * share + b * (1 - share); };
  return {part(over.red, under.red), part(over.green, under.green), part(over.blue, under.blue)};
}

Colour LightSurface(const Colour& colour, const Vector3d& normal) {
  const Vector3d n = normal.dz < 0 ? -normal : normal;
  const double light = shading::kAmbient + shading::kKeyShare * std::max(0.0, Dot(n, shading::kKey)) +
                       shading::kFillShare * std::max(0.0, Dot(n, shading::kFill));
  const double gloss =
      shading::kGloss * PowerOf(std::max(0.0, Dot(n, shading::kShine)), shading::kGlossPower);
  return {Part(colour.red * light + gloss), Part(colour.green * light + gloss),
          Part(colour.blue * light + gloss)};
}

std::vector<std::uint32_t> Silhouette(const Surface& surface, const Camera& camera) {
  std::vector<std::uint32_t> found;
  for (std::size_t i = surface.sharpEdges; i < surface.edges.size(); ++i) {
    const SurfaceEdge& edge = surface.edges[i];
    const Vector3d eye = camera.ToEye(surface.points[edge.from].Place());
    const bool isTurn = (Dot(UnpackVector(edge.left), eye) > 0) != (Dot(UnpackVector(edge.right), eye) > 0);
    if (isTurn) found.push_back(static_cast<std::uint32_t>(i));
  }
  return found;
}

}  // namespace vanzet::scene
