#pragma once

#include <optional>
#include <string>
#include <vector>

#include "scene/camera.h"
#include "scene/scene.h"
#include "scene/surface.h"

/// A scene made ready to be drawn many times.
namespace vanzet::scene {

/// What is drawn of a body, already cut.
struct ModelBody {
  std::string name;
  std::string solid;  ///< the named solid that it is; empty: made otherwise
  std::vector<Facet> facets;
  std::vector<SurfaceEdge> edges;
  std::vector<Stroke> cuts;
  modeller::Colour colour;
  bool isSeenThrough = false;
};

/// What is seen through comes behind all else.
struct Model {
  std::vector<ModelBody> bodies;
  std::vector<Mark> marks;
  bool isSection = false;  ///< what lies in front of the plane z = 0 is cut away
};

/// A fault when a body cannot be meshed.
Result<Model> ModelOf(const Scene& scene, bool isSection);

/// All points that have to be seen.
std::vector<geometry::Point3d> PointsOf(const Model& model);

/// The nearest body at a place of the picture, seen through or not; null when there is none.
const ModelBody* BodyAt(const Model& model, const Camera& camera, double x, double y);

}  // namespace vanzet::scene
