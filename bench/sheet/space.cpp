#include "sheet/space.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <nlohmann/json.hpp>

#include "base/one_line.h"
#include "results/png.h"
#include "scene/coarse.h"
#include "scene/picture.h"
#include "section/picture.h"
#include "section/style.h"
#include "sheet/base64.h"

namespace vanzet::sheet {
namespace {

using Json = nlohmann::ordered_json;

constexpr int kStillWidth = 1200, kStillHeight = 800;  // pixels

/// Numbers as letters; the lowest byte of each comes first.
template <class Number>
class Packed {
 public:
  void Add(Number number) {
    const auto bytes = std::bit_cast<std::array<char, sizeof(Number)>>(number);
    static_assert(std::endian::native == std::endian::little);
    bytes_.append(bytes.data(), bytes.size());
  }
  std::string Text() const { return Base64Of(bytes_); }

 private:
  std::string bytes_;
};

std::int8_t ByteOf(double part) {
  return static_cast<std::int8_t>(std::clamp(part, -1.0, 1.0) * 127);
}

std::string PointsOf(const scene::Surface& surface) {
  Packed<float> points;
  for (const scene::SurfacePoint& point : surface.points) {
    for (const float part : {point.x, point.y, point.z}) points.Add(part);
  }
  return points.Text();
}

std::string NormalsOf(const scene::Surface& surface) {
  Packed<std::int8_t> normals;
  for (const scene::SurfacePoint& point : surface.points) {
    const geometry::Vector3d normal = scene::UnpackVector(point.normal);
    for (const double part : {normal.dx, normal.dy, normal.dz}) normals.Add(ByteOf(part));
  }
  return normals.Text();
}

std::string FacetsOf(const scene::Surface& surface) {
  Packed<std::uint32_t> facets;
  for (const scene::Facet& facet : surface.facets) {
    for (const std::uint32_t corner : facet) facets.Add(corner);
  }
  return facets.Text();
}

std::string EdgesOf(const scene::Surface& surface) {
  Packed<std::uint32_t> edges;
  for (std::size_t i = 0; i < surface.sharpEdges; ++i) {
    edges.Add(surface.edges[i].from);
    edges.Add(surface.edges[i].to);
  }
  return edges.Text();
}

Json JsonOf(const scene::ModelBody& body, const std::string& label) {
  return {{"name", label},
          {"colour", section::TextOf(body.colour)},
          {"seenThrough", body.isSeenThrough},
          {"points", PointsOf(body.surface)},
          {"normals", NormalsOf(body.surface)},
          {"facets", FacetsOf(body.surface)},
          {"edges", EdgesOf(body.surface)}};
}

std::string LabelOf(const scene::ModelBody& body, const Spur& spur, const Words& words) {
  const auto made = std::ranges::find(spur.scene.bodies, body.name, &scene::SceneBody::name);
  return made == spur.scene.bodies.end() ? body.name : BodyLabel(*made, spur.equipment, words);
}

/// Member by member: where one throws inside nested braces, a compiler in use destroys those before it twice.
Picture PictureOf(std::string png, const Words& words, double width, double height) {
  Picture picture{.format = Picture::Format::kPng, .width = width, .height = height};
  picture.bytes = std::move(png);
  picture.alternative = words(Translatable("The equipment in space, seen from the upper right"));
  return picture;
}

}  // namespace

std::string BodyLabel(const scene::SceneBody& body, const scene::Equipment& equipment, const Words& words) {
  const bool isSub = body.name.starts_with("sub ");
  const scene::Spindle& spindle = equipment.spindles[isSub ? 1 : 0];
  std::string device, number;
  if (body.kind == scene::Kind::kClamp) device = spindle.clamp.name;
  if (body.kind == scene::Kind::kCenter) device = equipment.center.name;
  if (body.kind == scene::Kind::kJaw) {
    device = spindle.jaw.name;
    number = ", " + body.name.substr(body.name.rfind(' ') + 1);
  }
  const section::SectionTexts texts = section::TextsOf({.scale = 1, .unit = words.unit}, words.texts);
  return OneLine(texts.body({body.name, device, body.kind, isSub, {}})) + number;
}

Result<Picture> SmallPictureOf(const scene::Model& model, const Words& words) {
  constexpr int kSmallWidth = 360, kSmallHeight = 240;  // pixels
  constexpr std::size_t kSmallFacets = 50'000;
  constexpr double kWidth = 36;  // millimetres of paper
  const scene::Picture drawn =
      scene::Draw(scene::CoarseModel(model, kSmallFacets), {.width = kSmallWidth, .height = kSmallHeight});
  VANZET_TRY(auto png, results::PngOf(drawn));
  return PictureOf(std::move(png), words, kWidth, kWidth * kSmallHeight / kSmallWidth);
}

Result<Space> SpaceOf(const Spur& spur, const Words& words) {
  constexpr double kWidth = 150;  // millimetres of paper
  const scene::Model coarse = scene::CoarseModel(spur.model, kMostFacets);
  VANZET_TRY(auto png, results::PngOf(scene::Draw(coarse, {.width = kStillWidth, .height = kStillHeight})));
  Json bodies = Json::array();
  for (const scene::ModelBody& body : coarse.bodies)
    bodies.push_back(JsonOf(body, LabelOf(body, spur, words)));
  Space space;
  space.still = PictureOf(std::move(png), words, kWidth, kWidth * kStillHeight / kStillWidth);
  space.model = Json{{"bodies", std::move(bodies)}}.dump(-1, ' ', true, Json::error_handler_t::replace);
  return space;
}

}  // namespace vanzet::sheet
