#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "scene/camera.h"
#include "scene/scene.h"
#include "scene/surface.h"

/// A scene prepared for drawing it many times.
namespace vanzet::scene {

/// The facets and lines of a body that are drawn; a section is already made.
struct ModelBody {
  std::string name;
  std::string solid;  ///< the named solid that it is; empty: made otherwise
  std::vector<Facet> facets;
  std::vector<SurfaceEdge> edges;
  std::vector<Stroke> cuts;
  modeller::Colour colour;
  bool isSeenThrough = false;
};

/// A scene as it is drawn: see-through bodies follow all others.
struct Model {
  std::vector<ModelBody> bodies;
  std::vector<Mark> marks;
  bool isSection = false;           ///< everything in front of the plane z = 0 is cut away
  std::vector<Fault> missing = {};  ///< why bodies of the scene are not drawn
};

/// A body that cannot be meshed is missing. Fails only for a reason of the system, and when the work is
/// cancelled.
Result<Model> ModelOf(const Scene& scene, bool isSection);

/// All points that the picture must show.
std::vector<geometry::Point3d> PointsOf(const Model& model);

/// The points of the bodies with these names.
std::vector<geometry::Point3d> PointsOf(const Model& model, const std::set<std::string>& names);

/// The nearest body at a place of the picture, see-through or not; null when no body is there.
const ModelBody* BodyAt(const Model& model, const Camera& camera, double x, double y);

}  // namespace vanzet::scene
