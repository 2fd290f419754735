#include "scene/picture.h"

#include <algorithm>
#include <cmath>

#include "scene/raster.h"
#include "scene/vectors.h"

namespace vanzet::scene {
namespace {

using geometry::Point3d;
using geometry::Vector3d;
using modeller::Colour;

constexpr int kMostSamples = 1'000'000;               // in memory at once
constexpr double kThrough = 0.38;                     // the share of the colour of a see-through body
constexpr float kCommon = 0.2F;                       // millimetres: closer surfaces are one
constexpr double kEdgeShare = 0.55;                   // of an edge's colour over the surface
constexpr double kEdgeWidth = 1.1, kMarkWidth = 2.0;  // pixels
constexpr double kLift = 2e-3;  // in units of the reach: edges are drawn before their surfaces
constexpr double kHatch = 9;    // pixels between the lines of a cut face
constexpr double kHatchLine = 1.2;
constexpr double kMarkShare = 0.7;  // of the colour of a marked body

// Unit vectors, nearly.
const Vector3d kKey = {-0.45, 0.65, 0.61}, kFill = {0.70, 0.10, 0.71};
const Vector3d kShine = {-0.25, 0.36, 0.90};  // halfway between the key light and the eye

constexpr double kAmbient = 0.34, kKeyShare = 0.52, kFillShare = 0.22;
constexpr double kGloss = 0.22, kGlossPower = 28;

double Part(double value) {
  return std::clamp(value, 0.0, 1.0);
}

/// The colour of a surface that faces in a direction as the picture has it (x to the right, y up, z towards
/// the eye), under two fixed lights. The back of a surface looks like its front.
Colour LightSurface(const Colour& colour, const Vector3d& normal) {
  const Vector3d n = normal.dz < 0 ? -normal : normal;
  const double light =
      kAmbient + kKeyShare * std::max(0.0, Dot(n, kKey)) + kFillShare * std::max(0.0, Dot(n, kFill));
  const double gloss = kGloss * std::pow(std::max(0.0, Dot(n, kShine)), kGlossPower);
  return {Part(colour.red * light + gloss), Part(colour.green * light + gloss),
          Part(colour.blue * light + gloss)};
}

/// `share` of one colour over another.
Colour MixColours(const Colour& over, const Colour& under, double share) {
  const auto part = [&](double a, double b) { return a * share + b * (1 - share); };
  return {part(over.red, under.red), part(over.green, under.green), part(over.blue, under.blue)};
}

void Paint(Raster::Sample& sample, const Colour& colour, double share) {
  const ColourBytes over = BytesOf(colour);
  for (std::size_t i = 0; i < 3; ++i) {
    sample.colour[i] = static_cast<std::uint8_t>(over[i] * share + sample.colour[i] * (1 - share) + 0.5);
  }
}

/// A body as it is drawn.
struct Drawn {
  const ModelBody* body;
  Colour colour;
  bool isSeenThrough;
};

/// Draws the bodies into one band.
class Painter {
 public:
  Painter(const Camera& camera, bool isSection, const DrawOptions& options)
      : camera_(camera), hasCutFaces_(isSection && camera.SeesTopOfPlane()), options_(options) {}

  /// Begins a band of the picture.
  Raster& Begin(const SampleRange& band) {
    raster_.Begin(band, options_.style.background);
    return raster_;
  }

  void AddSurface(const Drawn& drawn) {
    range_ = RangeOfBody(*drawn.body);
    nearest_.assign(range_.Count(), {kNothing, {}});
    depth_.assign(hasCutFaces_ ? range_.Count() : 0, 0);
    for (const Facet& facet : drawn.body->facets) AddFacet(facet);
    for (int y = range_.top; y < range_.bottom; ++y) {
      for (int x = range_.left; x < range_.right; ++x) Merge(drawn, x, y);
    }
  }

  void AddEdges(const Drawn& drawn) {
    const double share = drawn.isSeenThrough ? kEdgeShare / 2 : kEdgeShare;
    for (const SurfaceEdge& edge : drawn.body->edges) {
      if (IsDrawn(edge)) AddLine({edge.from, edge.to}, options_.style.ink, kEdgeWidth, share);
    }
    for (const Stroke& cut : drawn.body->cuts) AddLine(cut, options_.style.ink, kEdgeWidth, share);
  }

  void AddMark(const Mark& mark) {
    for (std::size_t i = 1; i < mark.points.size(); ++i) {
      AddLine({mark.points[i - 1], mark.points[i]}, options_.style.mark, kMarkWidth, 1);
    }
  }

 private:
  static constexpr float kNothing = -2e30F;

  /// The nearest point of the body that is being added, and its direction.
  struct Own {
    float nearness;
    std::array<float, 3> normal;
  };

  PicturePoint At(const Point3d& point) const {
    const PicturePoint p = camera_.Project(point);
    return {p.x * options_.samples, p.y * options_.samples, p.nearness};
  }

  SampleRange RangeOfBody(const ModelBody& body) const {
    double left = 1e30, top = 1e30, right = -1e30, bottom = -1e30;
    for (const Facet& facet : body.facets) {
      for (const Point3d& corner : facet.corners) {
        const PicturePoint p = At(corner);
        left = std::min(left, p.x), right = std::max(right, p.x);
        top = std::min(top, p.y), bottom = std::max(bottom, p.y);
      }
    }
    return RangeOf(left, top, right, bottom, raster_.range());
  }

  void AddFacet(const Facet& facet) {
    std::array<RasterCorner, 3> corners;
    for (std::size_t i = 0; i < 3; ++i) {
      corners[i] = {At(facet.corners[i]), camera_.Seen(facet.normals[i])};
    }
    // In a picture y runs down, so a facet that faces the eye runs clockwise.
    const auto& [a, b, c] = corners;
    const double area = (b.at.x - a.at.x) * (c.at.y - a.at.y) - (b.at.y - a.at.y) * (c.at.x - a.at.x);
    const int side = area < 0 ? -1 : 1;
    CoverTriangle(corners, range_, [&](int x, int y, double nearness, const Vector3d& normal) {
      const std::size_t index = range_.Index(x, y);
      if (hasCutFaces_) depth_[index] += side;
      const auto near = static_cast<float>(nearness);
      if (near <= nearest_[index].nearness) return;
      nearest_[index] = {
          near,
          {static_cast<float>(normal.dx), static_cast<float>(normal.dy), static_cast<float>(normal.dz)}};
    });
  }

  /// Where the eye leaves more surfaces than it enters, it looks into the body through its cut face.
  void Merge(const Drawn& body, int x, int y) {
    const std::size_t index = range_.Index(x, y);
    const bool isCutFace = hasCutFaces_ && depth_[index] > 0;
    const double px = (x + 0.5) / options_.samples, py = (y + 0.5) / options_.samples;
    const auto nearness =
        isCutFace ? static_cast<float>(camera_.NearnessOfPlane(px, py)) : nearest_[index].nearness;
    Raster::Sample& sample = raster_.At(x, y);
    // Where a raw part and its finished part have a common face, the finished part is seen.
    if (nearness <= sample.nearness + (body.isSeenThrough ? kCommon : 0.0F)) return;
    const Colour colour =
        isCutFace ? Hatched(body.colour, px + py) : Surface(body.colour, nearest_[index].normal);
    Paint(sample, colour, body.isSeenThrough ? kThrough : 1);
    if (!body.isSeenThrough) sample.nearness = nearness;
  }

  Colour Hatched(const Colour& colour, double across) const {
    const bool isLine = std::fmod(across, kHatch * options_.line) < kHatchLine * options_.line;
    return isLine ? MixColours(colour, {0, 0, 0}, 0.75) : MixColours(colour, {1, 1, 1}, 0.8);
  }

  static Colour Surface(const Colour& colour, const std::array<float, 3>& facing) {
    return LightSurface(colour, UnitVector({facing[0], facing[1], facing[2]}));
  }

  /// Sharp edges are drawn, and those where the surface turns away from the eye.
  bool IsDrawn(const SurfaceEdge& edge) const {
    const Vector3d eye = camera_.ToEye(edge.from);
    return edge.isSharp || (Dot(edge.left, eye) > 0) != (Dot(edge.right, eye) > 0);
  }

  void AddLine(const Stroke& stroke, const Colour& colour, double width, double share) {
    const double lift = camera_.Reach() * kLift;
    const auto lifted = [&](const Point3d& point) { return At(point + camera_.ToEye(point) * lift); };
    const double samples = width * options_.line * options_.samples;
    CoverLine(lifted(stroke.from), lifted(stroke.to), samples, raster_.range(),
              [&](int x, int y, double nearness) {
                Raster::Sample& sample = raster_.At(x, y);
                if (static_cast<float>(nearness) > sample.nearness) Paint(sample, colour, share);
              });
  }

  const Camera& camera_;
  bool hasCutFaces_;
  const DrawOptions& options_;
  Raster raster_;
  SampleRange range_;  ///< of the body that is being added
  std::vector<Own> nearest_;
  std::vector<int> depth_;  ///< surfaces of the body that the eye leaves by, less those that it enters by
};

/// The bodies as they are to be seen, those that are seen through last.
std::vector<Drawn> DrawnBodies(const Model& model, const DrawOptions& options) {
  std::vector<Drawn> solid, through;
  for (const ModelBody& body : model.bodies) {
    const BodyLook look = LookAt(options.looks, body.name);
    if (look.isHidden) continue;
    const bool isSeenThrough = body.isSeenThrough || look.isSeenThrough;
    const Colour colour =
        look.isMarked ? MixColours(options.style.marked, body.colour, kMarkShare) : body.colour;
    (isSeenThrough ? through : solid).push_back({&body, colour, isSeenThrough});
  }
  solid.insert(solid.end(), through.begin(), through.end());
  return solid;
}

/// Paints edges over all surfaces that they could be on, and see-through bodies over everything else.
void PaintAll(const std::vector<Drawn>& all, const std::vector<Mark>& marks, Painter& painter) {
  const auto seenThrough = std::ranges::find(all, true, &Drawn::isSeenThrough);
  for (auto body = all.begin(); body != seenThrough; ++body) painter.AddSurface(*body);
  for (auto body = all.begin(); body != seenThrough; ++body) painter.AddEdges(*body);
  for (auto body = seenThrough; body != all.end(); ++body) {
    painter.AddSurface(*body);
    painter.AddEdges(*body);
  }
  for (const Mark& mark : marks) painter.AddMark(mark);
}

/// Makes each pixel the mean of its samples.
void Reduce(Raster& raster, int samples, Picture& picture) {
  const int rows = raster.range().Height() / samples, first = raster.range().top / samples;
  const int ofPixel = samples * samples;
  for (int y = 0; y < rows; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      std::array<int, 3> sum{};
      for (int i = 0; i < ofPixel; ++i) {
        const Raster::Sample& sample =
            raster.At(x * samples + i % samples, raster.range().top + y * samples + i / samples);
        for (std::size_t k = 0; k < 3; ++k) sum[k] += sample.colour[k];
      }
      const auto pixel = (static_cast<std::size_t>(first + y) * static_cast<std::size_t>(picture.width) +
                          static_cast<std::size_t>(x)) *
                         3;
      for (std::size_t k = 0; k < 3; ++k) {
        picture.bytes[pixel + k] = static_cast<std::uint8_t>((sum[k] + ofPixel / 2) / ofPixel);
      }
    }
  }
}

}  // namespace

Picture Draw(const Model& model, const PictureOptions& options) {
  const auto points = options.fitted.empty() ? PointsOf(model) : PointsOf(model, options.fitted);
  const Look look = LookFrom(options.view, options.isPerspective, points, options.width, options.height);
  return Draw(model, look, {.width = options.width, .height = options.height});
}

Picture Draw(const Model& model, const Look& look, const DrawOptions& options) {
  const Camera camera(look);
  Picture picture{options.width, options.height, {}};
  picture.bytes.resize(static_cast<std::size_t>(options.width) * static_cast<std::size_t>(options.height) *
                       3);
  const int samples = options.samples;
  const int band = std::max(1, kMostSamples / (options.width * samples * samples));
  Painter painter(camera, model.isSection, options);
  const std::vector<Drawn> bodies = DrawnBodies(model, options);
  for (int top = 0; top < options.height; top += band) {
    const int bottom = std::min(top + band, options.height);
    Raster& raster = painter.Begin({0, top * samples, options.width * samples, bottom * samples});
    PaintAll(bodies, model.marks, painter);
    Reduce(raster, samples, picture);
  }
  return picture;
}

}  // namespace vanzet::scene
