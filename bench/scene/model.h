#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "scene/camera.h"
#include "scene/plane_cut.h"
#include "scene/scene.h"

/// A scene prepared for drawing it many times.
namespace vanzet::scene {

/// The surface and the lines of a body that are drawn; a section is already made.
struct ModelBody {
  std::string name;
  std::string solid;  ///< the named solid that it is; empty: made otherwise
  Surface surface;
  std::vector<Stroke> cuts;
  modeller::Colour colour;
  bool isSeenThrough = false;
};

/// How a person wants to see a body, whatever the scene says of it.
struct BodyLook {
  bool isHidden = false;
  bool isSeenThrough = false;
  bool isMarked = false;  ///< in a colour that no body has

  bool operator==(const BodyLook&) const = default;
};

/// By the names of bodies.
using BodyLooks = std::map<std::string, BodyLook, std::less<>>;

/// The look at a body; the usual one for a name without an entry.
BodyLook LookAt(const BodyLooks& looks, const std::string& name);

/// A scene as it is drawn: see-through bodies follow all others.
struct Model {
  std::vector<ModelBody> bodies;
  std::vector<Mark> marks;
  std::optional<Plane> section = {};  ///< everything in front of it is cut away
  std::vector<Fault> missing = {};    ///< why bodies of the scene are not drawn
};

/// A body that cannot be meshed is missing. Fails only for a reason of the system, and when the work is
/// cancelled.
Result<Model> ModelOf(const Scene& scene);

/// The part of a whole model that a plane leaves.
Model CutModel(const Model& whole, const Plane& plane);

/// A box about the bodies and marks.
geometry::Box3d BoxOf(const Model& model);

/// All points that the picture must show.
PointSource PointsOf(const Model& model);

/// The points of the bodies with these names.
PointSource PointsOf(const Model& model, const std::set<std::string>& names);

/// The nearest body at a place of the picture, and the point of it that is seen there. A body that is seen
/// through counts where no other is. Without a body it is null.
struct Seen {
  const ModelBody* body = nullptr;
  geometry::Point3d point = {};
};
Seen SeenAt(const Model& model, const Camera& camera, double x, double y, const BodyLooks& looks = {});

}  // namespace vanzet::scene
