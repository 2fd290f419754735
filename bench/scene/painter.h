#pragma once

#include <optional>
#include <span>
#include <vector>

#include "scene/raster.h"
#include "scene/shading.h"

namespace vanzet::scene {

/// A body with its points where the picture has them.
struct ProjectedBody {
  struct Point {
    float x, y, nearness;

    PicturePoint Place() const { return {x, y, nearness}; }
  };
  /// The samples that a group of facets can cover.
  struct Extent {
    float left = 1e30F, top = 1e30F, right = -1e30F, bottom = -1e30F;
  };

  Drawn drawn;
  std::vector<Point> points;
  std::vector<Extent> groups;
  std::vector<std::uint32_t> silhouette;
};

ProjectedBody ProjectBody(const Drawn& drawn, const Camera& camera, int samples);

/// Paints bodies into one band of a picture after another.
class Painter {
 public:
  Painter(const Camera& camera, const std::optional<Plane>& section, const DrawOptions& options);

  /// Begins a band of the picture.
  Raster& Begin(const SampleRange& band);

  /// Paints edges over all surfaces that they could be on, and see-through bodies over everything else.
  void Paint(std::span<const ProjectedBody> bodies, std::span<const Mark> marks);

 private:
  static constexpr float kNothing = -2e30F;

  /// The nearest point of the body that is being added, and its direction in space.
  struct Own {
    float nearness;
    std::array<float, 3> normal;
  };

  PicturePoint At(const geometry::Point3d& point) const;
  SampleRange RangeOfBody(const ProjectedBody& body) const;
  void AddSurface(const ProjectedBody& body);
  void AddFacets(const ProjectedBody& body, const FacetGroup& group);
  void AddFacet(const Surface& surface, const Facet& facet, const std::array<PicturePoint, 3>& corners,
                int side);
  void Merge(const Drawn& drawn, int x, int y);
  modeller::Colour Hatched(const modeller::Colour& colour, double across) const;
  void AddEdges(const ProjectedBody& body);
  void AddLine(const Stroke& stroke, const modeller::Colour& colour, double width, double share);

  const Camera& camera_;
  std::optional<Plane> cut_;  ///< the plane of the section, where its cut faces are seen
  const DrawOptions& options_;
  Raster raster_;
  SampleRange range_;  ///< of the body that is being added
  std::vector<Own> nearest_;
  std::vector<int> depth_;  ///< surfaces of the body that the eye leaves by, less those that it enters by
};

}  // namespace vanzet::scene
