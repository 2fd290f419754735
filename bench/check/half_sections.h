#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "check/facet_tree.h"
#include "geometry/box.h"
#include "geometry/region.h"
#include "modeller/mesh.h"
#include "scene/scene.h"

namespace vanzet::check {

/// How sound the facets of a body are.
enum class Soundness {
  kSound,          ///< true for a body that has half sections of its own
  kOpen,           ///< they do not enclose a volume
  kInsideOut,      ///< they enclose one, and face inwards
  kWithoutVolume,  ///< what they enclose has no volume
};

/// A body of the scene: its half sections, by planes through the axis, and its facets. A body that is made
/// from a half section has the same one at every angle; any other body is cut as facets. A jaw has only the
/// one in its own middle plane.
///
/// Space    of a half section: x along the main spindle's axis, y the distance from it; millimetres
/// Exact    half sections of bodies that have one of their own; facets of such a body are within 0.02 mm of
///          its surface, and those of any other body are taken to be within 0.05 mm
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

  /// The extents along the axis, and away from it; those of a jaw are those of its middle plane. A body that
  /// is only facets counts as one that reaches the axis.
  const geometry::Box& box() const { return box_; }

  /// By how much the half sections may be wrong.
  double Error() const;

  Soundness soundness() const { return soundness_; }

  /// Whether its facets enclose a volume, in whichever direction they face.
  bool IsClosed() const { return soundness_ == Soundness::kSound || soundness_ == Soundness::kInsideOut; }

  double Volume() const;  ///< of the body

  /// The facets where the body is, made when they are first asked for. Valid as long as this.
  /// Errors   a body with half sections of its own cannot be meshed
  Result<const FacetTree*> Facets() const;

  /// By how much these may be wrong.
  double FacetError() const;

 private:
  geometry::Region Cut(double degrees) const;

  const scene::SceneBody* body_ = nullptr;
  double angle_ = 0;
  geometry::Box box_;
  Soundness soundness_ = Soundness::kSound;
  std::shared_ptr<const modeller::Mesh> mesh_;  ///< null for a body with half sections of its own
  mutable std::map<double, geometry::Region> cuts_;
  mutable std::shared_ptr<const FacetTree> facets_;
};

/// The half sections of all bodies of a scene. Bodies without facets have none; why is in `unusable`.
struct HalfSections {
  std::vector<HalfSection> bodies;
  std::vector<std::pair<const scene::SceneBody*, Fault>> unusable;

  static HalfSections Of(const scene::Scene& scene);

  /// The first body of a kind on a side, or null; of jaws the upright one.
  const HalfSection* Find(scene::Kind kind, bool isSub = false) const;

  /// All jaws of a side.
  std::vector<const HalfSection*> Jaws(bool isSub) const;
};

}  // namespace vanzet::check
