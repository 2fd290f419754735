#include "scene/picture.h"

#include <algorithm>
#include <cmath>

#include "scene/clip.h"
#include "scene/raster.h"
#include "scene/shading.h"
#include "scene/surface.h"

namespace vanzet::scene {
namespace {

using geometry::Point3d;
using geometry::Vector3d;
using modeller::Colour;

constexpr int kSamples = 3;                           // a pixel's samples in each direction
constexpr int kMostSamples = 4'000'000;               // in memory at once
constexpr double kThrough = 0.38;                     // the share of a body that is seen through
constexpr double kEdgeShare = 0.55;                   // of an edge's colour over the surface
constexpr double kEdgeWidth = 1.1, kMarkWidth = 2.0;  // pixels
constexpr double kLift = 2e-3;                        // of the scene's reach: edges lie before their surfaces
constexpr double kHatch = 9;                          // pixels between the lines of a cut face
constexpr double kHatchLine = 1.2;

constexpr Colour kBackground = {0.97, 0.975, 0.98};
constexpr Colour kInk = {0.10, 0.12, 0.15};
constexpr Colour kMark = {0.72, 0.10, 0.55};

/// What is drawn of a body, already cut.
struct Shown {
  std::vector<Facet> facets;
  std::vector<SurfaceEdge> edges;
  std::vector<Stroke> cuts;
  Colour colour;
  bool isSeenThrough;
};

Shown Whole(Surface surface, const SceneBody& body) {
  return {std::move(surface.facets), std::move(surface.edges), {}, ColourOf(body.kind), body.isSeenThrough};
}

Shown Cut(const Surface& surface, const SceneBody& body) {
  Shown shown{{}, {}, {}, ColourOf(body.kind), body.isSeenThrough};
  for (const Facet& facet : surface.facets) {
    for (const Facet& left : Below(facet)) shown.facets.push_back(left);
    if (const auto cut = CutOf(facet)) shown.cuts.push_back(*cut);
  }
  for (const SurfaceEdge& edge : surface.edges) {
    const auto left = Below(Stroke{edge.from, edge.to});
    if (left) shown.edges.push_back({left->from, left->to, edge.left, edge.right, edge.isSharp});
  }
  return shown;
}

Result<std::vector<Shown>> ShownOf(const Scene& scene, bool isSection) {
  std::vector<Shown> all;
  for (const SceneBody& body : scene.bodies) {
    if (!body.isShown) continue;
    const auto mesh = modeller::MeshOf(body.body, {});
    if (!mesh) return Fault{body.name + ": " + mesh.fault().text};
    Surface surface = SurfaceOf(*mesh, body.placement);
    all.push_back(isSection ? Cut(surface, body) : Whole(std::move(surface), body));
  }
  // What is seen through comes over all else.
  std::ranges::stable_partition(all, [](const Shown& shown) { return !shown.isSeenThrough; });
  return all;
}

std::vector<Point3d> PointsOf(const std::vector<Shown>& all, const std::vector<Mark>& marks) {
  std::vector<Point3d> points;
  for (const Shown& shown : all) {
    for (const Facet& facet : shown.facets) {
      points.insert(points.end(), facet.corners.begin(), facet.corners.end());
    }
  }
  for (const Mark& mark : marks) points.insert(points.end(), mark.points.begin(), mark.points.end());
  return points;
}

void Paint(Raster::Sample& sample, const Colour& colour, double share) {
  const Colour under{sample.colour[0], sample.colour[1], sample.colour[2]};
  const Colour mixed = Mixed(colour, under, share);
  sample.colour = {static_cast<float>(mixed.red), static_cast<float>(mixed.green),
                   static_cast<float>(mixed.blue)};
}

/// Draws the bodies into one band.
class Painter {
 public:
  Painter(const Camera& camera, bool isSection, Raster& raster)
      : camera_(camera), hasCutFaces_(isSection && camera.SeesTopOfPlane()), raster_(raster) {}

  void AddSurface(const Shown& shown) {
    const auto samples =
        static_cast<std::size_t>(raster_.Width()) * static_cast<std::size_t>(raster_.Height());
    nearest_.assign(samples, {kNothing, {}});
    depth_.assign(hasCutFaces_ ? samples : 0, 0);
    for (const Facet& facet : shown.facets) AddFacet(facet, shown.colour);
    if (hasCutFaces_) AddCutFace(shown.colour);
    Merge(shown.isSeenThrough);
  }

  void AddEdges(const Shown& shown) {
    const double share = shown.isSeenThrough ? kEdgeShare / 2 : kEdgeShare;
    for (const SurfaceEdge& edge : shown.edges) {
      if (IsDrawn(edge)) AddLine({edge.from, edge.to}, kInk, kEdgeWidth, share);
    }
    for (const Stroke& cut : shown.cuts) AddLine(cut, kInk, kEdgeWidth, share);
  }

  void AddMark(const Mark& mark) {
    for (std::size_t i = 1; i < mark.points.size(); ++i) {
      AddLine({mark.points[i - 1], mark.points[i]}, kMark, kMarkWidth, 1);
    }
  }

 private:
  static constexpr double kNothing = -2e30;

  /// The nearest of the body that is being added.
  struct Own {
    double nearness;
    Colour colour;
  };

  PicturePoint At(const Point3d& point) const {
    const PicturePoint p = camera_.Project(point);
    return {p.x * kSamples, p.y * kSamples, p.nearness};
  }

  void AddFacet(const Facet& facet, const Colour& colour) {
    std::array<RasterCorner, 3> corners;
    for (std::size_t i = 0; i < 3; ++i) {
      corners[i] = {At(facet.corners[i]), camera_.Seen(facet.normals[i])};
    }
    // In a picture y runs down, so what faces the eye runs clockwise.
    const auto& [a, b, c] = corners;
    const double area = (b.at.x - a.at.x) * (c.at.y - a.at.y) - (b.at.y - a.at.y) * (c.at.x - a.at.x);
    const int side = area < 0 ? -1 : 1;
    raster_.Triangle(corners, [&](Raster::Sample&, int x, int y, double nearness, const Vector3d& normal) {
      const std::size_t index = raster_.Index(x, y);
      if (hasCutFaces_) depth_[index] += side;
      if (nearness <= nearest_[index].nearness) return;
      const double length = normal.Magnitude();
      nearest_[index] = {nearness, Lit(colour, length > 0 ? normal * (1 / length) : normal)};
    });
  }

  /// Where more surfaces are left than entered, the eye looks into the body through its cut face.
  void AddCutFace(const Colour& colour) {
    const Colour face = Mixed(colour, {1, 1, 1}, 0.8), line = Mixed(colour, {0, 0, 0}, 0.75);
    for (int y = raster_.Top(); y < raster_.Top() + raster_.Height(); ++y) {
      for (int x = 0; x < raster_.Width(); ++x) {
        const std::size_t index = raster_.Index(x, y);
        if (depth_[index] <= 0) continue;
        const double px = (x + 0.5) / kSamples, py = (y + 0.5) / kSamples;
        const bool isLine = std::fmod(px + py, kHatch) < kHatchLine;
        nearest_[index] = {camera_.NearnessOfPlane(px, py), isLine ? line : face};
      }
    }
  }

  void Merge(bool isSeenThrough) {
    for (int y = raster_.Top(); y < raster_.Top() + raster_.Height(); ++y) {
      for (int x = 0; x < raster_.Width(); ++x) {
        const Own& own = nearest_[raster_.Index(x, y)];
        Raster::Sample& sample = raster_.At(x, y);
        if (own.nearness <= sample.nearness) continue;
        Paint(sample, own.colour, isSeenThrough ? kThrough : 1);
        if (!isSeenThrough) sample.nearness = own.nearness;
      }
    }
  }

  /// Sharp edges are, and those behind which the surface turns away.
  bool IsDrawn(const SurfaceEdge& edge) const {
    const Vector3d eye = camera_.ToEye(edge.from);
    return edge.isSharp || (Dot(edge.left, eye) > 0) != (Dot(edge.right, eye) > 0);
  }

  void AddLine(const Stroke& stroke, const Colour& colour, double width, double share) {
    const double lift = camera_.Reach() * kLift;
    const auto lifted = [&](const Point3d& point) { return At(point + camera_.ToEye(point) * lift); };
    const PicturePoint from = lifted(stroke.from), to = lifted(stroke.to);
    raster_.Line(from, to, width * kSamples, [&](Raster::Sample& sample, int, int, double nearness) {
      if (nearness > sample.nearness) Paint(sample, colour, share);
    });
  }

  const Camera& camera_;
  bool hasCutFaces_;
  Raster& raster_;
  std::vector<Own> nearest_;
  std::vector<int> depth_;  ///< surfaces of the body that the eye leaves by, less those that it enters by
};

/// Edges come over all surfaces that they could lie on; what is seen through comes over all else.
void PaintAll(const std::vector<Shown>& all, const std::vector<Mark>& marks, Painter& painter) {
  const auto seenThrough = std::ranges::find(all, true, &Shown::isSeenThrough);
  for (auto shown = all.begin(); shown != seenThrough; ++shown) painter.AddSurface(*shown);
  for (auto shown = all.begin(); shown != seenThrough; ++shown) painter.AddEdges(*shown);
  for (auto shown = seenThrough; shown != all.end(); ++shown) {
    painter.AddSurface(*shown);
    painter.AddEdges(*shown);
  }
  for (const Mark& mark : marks) painter.AddMark(mark);
}

/// The mean of the samples of each pixel.
void Reduce(Raster& raster, Picture& picture) {
  const int rows = raster.Height() / kSamples, first = raster.Top() / kSamples;
  for (int y = 0; y < rows; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      std::array<double, 3> sum{};
      for (int i = 0; i < kSamples * kSamples; ++i) {
        const Raster::Sample& sample =
            raster.At(x * kSamples + i % kSamples, raster.Top() + y * kSamples + i / kSamples);
        for (std::size_t k = 0; k < 3; ++k) sum[k] += static_cast<double>(sample.colour[k]);
      }
      const auto pixel = (static_cast<std::size_t>(first + y) * static_cast<std::size_t>(picture.width) +
                          static_cast<std::size_t>(x)) *
                         3;
      for (std::size_t k = 0; k < 3; ++k) {
        picture.bytes[pixel + k] =
            static_cast<std::uint8_t>(std::lround(255 * sum[k] / (kSamples * kSamples)));
      }
    }
  }
}

}  // namespace

Result<Picture> Draw(const Scene& scene, const PictureOptions& options) {
  const auto all = ShownOf(scene, options.isSection);
  if (!all) return all.fault();
  const Camera camera(options.view, options.isPerspective, PointsOf(*all, scene.marks), options.width,
                      options.height);
  Picture picture{options.width, options.height, {}};
  picture.bytes.resize(static_cast<std::size_t>(options.width) * static_cast<std::size_t>(options.height) *
                       3);
  const int band = std::max(1, kMostSamples / (options.width * kSamples * kSamples));
  for (int top = 0; top < options.height; top += band) {
    const int rows = std::min(band, options.height - top);
    Raster raster(options.width * kSamples, top * kSamples, rows * kSamples, kBackground);
    Painter painter(camera, options.isSection, raster);
    PaintAll(*all, scene.marks, painter);
    Reduce(raster, picture);
  }
  return picture;
}

}  // namespace vanzet::scene
