#include "scene/painter.h"

#include <algorithm>
#include <cmath>

#include "scene/vectors.h"

namespace vanzet::scene {
namespace {

using geometry::Point3d;
using geometry::Vector3d;
using modeller::Colour;

void PaintSample(Raster::Sample& sample, const Colour& colour, double share) {
  const ColourBytes over = BytesOf(colour);
  if (share == 1) return static_cast<void>(sample.colour = over);
  for (std::size_t i = 0; i < 3; ++i) {
    sample.colour[i] =
        static_cast<std::uint8_t>(std::lround(over[i] * share + sample.colour[i] * (1 - share)));
  }
}

ProjectedBody::Extent ExtentOf(const ProjectedBody& body, const FacetGroup& group) {
  ProjectedBody::Extent extent;
  for (std::uint32_t i = group.first; i < group.first + group.count; ++i) {
    for (const std::uint32_t number : body.drawn.body->surface.facets[i]) {
      const ProjectedBody::Point& p = body.points[number];
      extent.left = std::min(extent.left, p.x), extent.right = std::max(extent.right, p.x);
      extent.top = std::min(extent.top, p.y), extent.bottom = std::max(extent.bottom, p.y);
    }
  }
  return extent;
}

}  // namespace

ProjectedBody ProjectBody(const Drawn& drawn, const Camera& camera, int samples) {
  const Surface& surface = drawn.body->surface;
  ProjectedBody body{drawn, {}, {}, Silhouette(surface, camera)};
  body.points.reserve(surface.points.size());
  for (const SurfacePoint& point : surface.points) {
    const PicturePoint p = camera.Project(point.Place());
    body.points.push_back({static_cast<float>(p.x * samples), static_cast<float>(p.y * samples),
                           static_cast<float>(p.nearness)});
  }
  for (const FacetGroup& group : surface.groups) body.groups.push_back(ExtentOf(body, group));
  return body;
}

Painter::Painter(const Camera& camera, const std::optional<Plane>& section, const DrawOptions& options)
    : camera_(camera), options_(options) {
  if (section && camera.SeesFrontOf(*section)) cut_ = section;
}

Raster& Painter::Begin(const SampleRange& band) {
  raster_.Begin(band, options_.style.background);
  return raster_;
}

void Painter::Paint(std::span<const ProjectedBody> bodies, std::span<const Mark> marks) {
  const auto isSeenThrough = [](const ProjectedBody& body) { return body.drawn.isSeenThrough; };
  const auto seenThrough = std::ranges::find_if(bodies, isSeenThrough);
  for (auto body = bodies.begin(); body != seenThrough; ++body) AddSurface(*body);
  for (auto body = bodies.begin(); body != seenThrough; ++body) AddEdges(*body);
  for (auto body = seenThrough; body != bodies.end(); ++body) {
    AddSurface(*body);
    AddEdges(*body);
  }
  for (const Mark& mark : marks) {
    for (std::size_t i = 1; i < mark.points.size(); ++i) {
      AddLine({mark.points[i - 1], mark.points[i]}, options_.style.mark, shading::kMarkWidth, 1);
    }
  }
}

PicturePoint Painter::At(const Point3d& point) const {
  const PicturePoint p = camera_.Project(point);
  return {p.x * options_.samples, p.y * options_.samples, p.nearness};
}

SampleRange Painter::RangeOfBody(const ProjectedBody& body) const {
  ProjectedBody::Extent all;
  for (const ProjectedBody::Extent& group : body.groups) {
    all.left = std::min(all.left, group.left), all.right = std::max(all.right, group.right);
    all.top = std::min(all.top, group.top), all.bottom = std::max(all.bottom, group.bottom);
  }
  return RangeOf(all.left, all.top, all.right, all.bottom, raster_.range());
}

void Painter::AddSurface(const ProjectedBody& body) {
  const Surface& surface = body.drawn.body->surface;
  range_ = RangeOfBody(body);
  nearest_.assign(range_.Count(), {kNothing, {}});
  depth_.assign(cut_ ? range_.Count() : 0, 0);
  for (std::size_t i = 0; i < surface.groups.size(); ++i) {
    const ProjectedBody::Extent& group = body.groups[i];
    const SampleRange seen = RangeOf(group.left, group.top, group.right, group.bottom, range_);
    if (seen.Width() > 0 && seen.Height() > 0) AddFacets(body, surface.groups[i]);
  }
  for (int y = range_.top; y < range_.bottom; ++y) {
    for (int x = range_.left; x < range_.right; ++x) Merge(body.drawn, x, y);
  }
}

void Painter::AddFacets(const ProjectedBody& body, const FacetGroup& group) {
  const Surface& surface = body.drawn.body->surface;
  for (std::uint32_t i = group.first; i < group.first + group.count; ++i) {
    const Facet& facet = surface.facets[i];
    const std::array<PicturePoint, 3> corners = {body.points[facet[0]].Place(), body.points[facet[1]].Place(),
                                                 body.points[facet[2]].Place()};
    // In a picture y runs down, so a facet that faces the eye runs clockwise.
    const auto& [a, b, c] = corners;
    const double area = (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
    if (area < 0 || !surface.isClosed) AddFacet(surface, facet, corners, area < 0 ? -1 : 1);
  }
}

void Painter::AddFacet(const Surface& surface, const Facet& facet, const std::array<PicturePoint, 3>& corners,
                       int side) {
  std::array<Vector3d, 3> normals;
  bool hasNormals = false;
  CoverTriangle(corners, range_, [&](int x, int y, const Shares& shares) {
    const std::size_t index = range_.Index(x, y);
    if (cut_) depth_[index] += side;
    const auto near = static_cast<float>(shares[0] * corners[0].nearness + shares[1] * corners[1].nearness +
                                         shares[2] * corners[2].nearness);
    if (near <= nearest_[index].nearness) return;
    if (!hasNormals) {
      for (std::size_t i = 0; i < 3; ++i) normals[i] = UnpackVector(surface.points[facet[i]].normal);
      hasNormals = true;
    }
    const Vector3d normal = normals[0] * shares[0] + normals[1] * shares[1] + normals[2] * shares[2];
    nearest_[index] = {
        near, {static_cast<float>(normal.dx), static_cast<float>(normal.dy), static_cast<float>(normal.dz)}};
  });
}

/// Where the eye leaves more surfaces than it enters, it looks into the body through its cut face.
void Painter::Merge(const Drawn& drawn, int x, int y) {
  const std::size_t index = range_.Index(x, y);
  const bool isCutFace = cut_ && depth_[index] > 0;
  if (!isCutFace && nearest_[index].nearness == kNothing) return;
  const double px = (x + 0.5) / options_.samples, py = (y + 0.5) / options_.samples;
  const auto nearness =
      isCutFace ? static_cast<float>(camera_.NearnessOf(*cut_, px, py)) : nearest_[index].nearness;
  Raster::Sample& sample = raster_.At(x, y);
  // Where a raw part and its finished part have a common face, the finished part is seen.
  const float common = drawn.isSeenThrough ? static_cast<float>(shading::kCommon) : 0.0F;
  if (nearness <= sample.nearness + common) return;
  const auto& [nx, ny, nz] = nearest_[index].normal;
  const Colour colour = isCutFace ? Hatched(drawn.colour, px + py)
                                  : LightSurface(drawn.colour, UnitVector(camera_.Seen({nx, ny, nz})));
  PaintSample(sample, colour, drawn.isSeenThrough ? shading::kThrough : 1);
  if (!drawn.isSeenThrough) sample.nearness = nearness;
}

Colour Painter::Hatched(const Colour& colour, double across) const {
  const bool isLine =
      std::fmod(across, shading::kHatch * options_.line) < shading::kHatchLine * options_.line;
  return isLine ? MixColours(colour, {0, 0, 0}, shading::kHatchDark)
                : MixColours(colour, {1, 1, 1}, shading::kHatchLight);
}

/// Sharp edges are drawn, and those where the surface turns away from the eye.
void Painter::AddEdges(const ProjectedBody& body) {
  const Surface& surface = body.drawn.body->surface;
  const double share = body.drawn.EdgeShare();
  const auto add = [&](std::size_t number) {
    const SurfaceEdge& edge = surface.edges[number];
    AddLine({surface.points[edge.from].Place(), surface.points[edge.to].Place()}, options_.style.ink,
            shading::kEdgeWidth, share);
  };
  for (std::size_t i = 0; i < surface.sharpEdges; ++i) add(i);
  for (const std::uint32_t i : body.silhouette) add(i);
  for (const Stroke& cut : body.drawn.body->cuts)
    AddLine(cut, options_.style.ink, shading::kEdgeWidth, share);
}

void Painter::AddLine(const Stroke& stroke, const Colour& colour, double width, double share) {
  const double lift = camera_.Reach() * shading::kLift;
  const auto lifted = [&](const Point3d& point) { return At(point + camera_.ToEye(point) * lift); };
  const double samples = width * options_.line * options_.samples;
  CoverLine(lifted(stroke.from), lifted(stroke.to), samples, raster_.range(),
            [&](int x, int y, double nearness) {
              Raster::Sample& sample = raster_.At(x, y);
              if (static_cast<float>(nearness) > sample.nearness) PaintSample(sample, colour, share);
            });
}

}  // namespace vanzet::scene
