#pragma once

#include <vector>

#include "scene/picture.h"

/// How bodies look. The painter and OpenGL draw by the same rules, so that one picture shows what the other
/// does.
namespace vanzet::scene {

namespace shading {

// Directions to the lights as the picture has them: x to the right, y up, z towards the eye. Unit vectors,
// nearly.
inline constexpr geometry::Vector3d kKey = {-0.45, 0.65, 0.61}, kFill = {0.70, 0.10, 0.71};
inline constexpr geometry::Vector3d kShine = {-0.25, 0.36, 0.90};  ///< halfway between key light and eye

inline constexpr double kAmbient = 0.34, kKeyShare = 0.52, kFillShare = 0.22;
inline constexpr double kGloss = 0.22;
inline constexpr int kGlossPower = 28;

inline constexpr double kThrough = 0.38;                     ///< the share of a see-through body's colour
inline constexpr double kCommon = 0.2;                       ///< millimetres: closer surfaces are one
inline constexpr double kEdgeShare = 0.55;                   ///< of an edge's colour over the surface
inline constexpr double kEdgeWidth = 1.1, kMarkWidth = 2.0;  ///< pixels
inline constexpr double kLift = 2e-3;  ///< in units of the reach: edges are drawn before their surfaces
inline constexpr double kHatch = 9, kHatchLine = 1.2;          ///< pixels, of the lines of a cut face
inline constexpr double kHatchDark = 0.75, kHatchLight = 0.8;  ///< the shares of the body's colour
inline constexpr double kMarkShare = 0.7;                      ///< of the colour of a marked body

}  // namespace shading

/// A body as it is drawn.
struct Drawn {
  const ModelBody* body;
  modeller::Colour colour;
  bool isSeenThrough;

  /// Of the colour of an edge over what it is on.
  double EdgeShare() const { return isSeenThrough ? shading::kEdgeShare / 2 : shading::kEdgeShare; }
};

/// The bodies as they are to be seen, those that are seen through last.
std::vector<Drawn> DrawnBodies(const Model& model, const DrawOptions& options);

/// `share` of one colour over another.
modeller::Colour MixColours(const modeller::Colour& over, const modeller::Colour& under, double share);

/// The colour of a surface that faces in a direction as the picture has it. The back of a surface looks like
/// its front.
modeller::Colour LightSurface(const modeller::Colour& colour, const geometry::Vector3d& normal);

/// The numbers of the edges that are not sharp where the surface turns away from the eye.
std::vector<std::uint32_t> Silhouette(const Surface& surface, const Camera& camera);

}  // namespace vanzet::scene
