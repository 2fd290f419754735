#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "geometry/box.h"
#include "geometry/region.h"
#include "modeller/mesh.h"
#include "scene/scene.h"

namespace vanzet::check {

/// A body of the scene and its half sections, by planes through the axis. A body that is made from a half
/// section has the same one at every angle; any other body is cut as facets. A jaw has only the one in its
/// own middle plane.
///
/// Space    of a half section: x along the main spindle's axis, y the distance from it; millimetres
class HalfSection {
 public:
  /// The scene has to live as long.
  /// Errors   the body has no facets
  static Result<HalfSection> Of(const scene::SceneBody& body);

  const scene::SceneBody& body() const { return *body_; }
  bool IsSub() const { return body_->name.starts_with("sub "); }
  bool IsJaw() const { return body_->kind == scene::Kind::kJaw; }

  /// Whether it is the same at every angle.
  bool IsTurned() const { return body_->profile.has_value() || IsJaw(); }

  /// By the plane at an angle about the axis, in degrees from the upright one towards +z.
  const geometry::Region& At(double degrees) const;

  /// By the plane in which the body is compared: that of the jaw, or the upright one.
  const geometry::Region& Own() const { return At(0); }

  /// The angle of a jaw's middle plane.
  double Angle() const { return angle_; }

  /// The extents along the axis, and away from it.
  const geometry::Box& box() const { return box_; }

  /// By how much the half sections may be wrong.
  double Error() const;

  /// Whether its facets enclose a volume; true for a body that has half sections of its own.
  bool IsClosed() const { return isClosed_; }

  double Volume() const;  ///< of the body

 private:
  geometry::Region Cut(double degrees) const;

  const scene::SceneBody* body_ = nullptr;
  double angle_ = 0;
  geometry::Box box_;
  bool isClosed_ = true;
  std::shared_ptr<const modeller::Mesh> mesh_;  ///< null for a body with half sections of its own
  mutable std::map<double, geometry::Region> cuts_;
};

/// The half sections of all bodies of a scene. Bodies without facets have none; why is in `unusable`.
struct HalfSections {
  std::vector<HalfSection> bodies;
  std::vector<std::pair<const scene::SceneBody*, Fault>> unusable;

  /// Fails only for a reason of the system, and when the work is cancelled.
  static Result<HalfSections> Of(const scene::Scene& scene);

  /// The first body of a kind on a side, or null; of jaws the upright one.
  const HalfSection* Find(scene::Kind kind, bool isSub = false) const;

  /// All jaws of a side.
  std::vector<const HalfSection*> Jaws(bool isSub) const;
};

/// The angles at which two bodies are compared: one where the half sections are the same at every angle, that
/// of a jaw where one is a jaw, else every 7.5 degrees.
std::vector<double> AnglesFor(const HalfSection& a, const HalfSection& b);

}  // namespace vanzet::check
