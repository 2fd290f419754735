#include <cmath>
#include <nlohmann/json.hpp>

#include "modeller/measures.h"
#include "modeller/mesh.h"
#include "results/setup_texts.h"
#include "scene/body_names.h"

/// The scene as JSON, one body a line. docs/formats/setup.md describes it.
namespace vanzet::results {
namespace {

using Json = nlohmann::ordered_json;

constexpr int kVersion = 1;
constexpr double kNanometres = 1e6;  // of a millimetre

/// A length to a nanometre, so that the text has no digits without meaning, and no zero with a sign.
double Rounded(double length) {
  return std::round(length * kNanometres) / kNanometres + 0.0;
}

Json JsonOf(const geometry::Point3d& point) {
  return {Rounded(point.x), Rounded(point.y), Rounded(point.z)};
}

const char* WordOf(scene::Kind kind) {
  switch (kind) {
    case scene::Kind::kClamp: return "clamp";
    case scene::Kind::kJaw: return "jaw";
    case scene::Kind::kCenter: return "center";
    case scene::Kind::kSteadyRest: return "steady_rest";
    case scene::Kind::kBillet: return "billet";
    case scene::Kind::kFinishPart: return "finish_part";
  }
  return "";
}

/// The upper three rows of a placement: the turn, and the place of the body's own origin.
Json RowsOf(const geometry::Matrix& placement) {
  Json rows = Json::array();
  for (std::size_t row = 0; row < 3; ++row) {
    const double* const e = &placement.e[4 * row];
    rows.push_back({e[0], e[1], e[2], Rounded(e[3])});
  }
  return rows;
}

Result<Json> JsonOf(const scene::SceneBody& body, const scene::Equipment& equipment) {
  const auto mesh = modeller::MeshOf(body.body, {});
  if (!mesh) return Fault{.text = body.name + ": " + mesh.fault().text, .kind = mesh.fault().kind};
  const modeller::Measures measures = modeller::MeasuresOf(*mesh);
  const modeller::Colour colour = scene::ColourOf(body.kind);
  Json points = Json::array();
  for (const geometry::Point3d& point : mesh->points) points.push_back(JsonOf(point));
  return Json{{"name", body.name},
              {"kind", WordOf(body.kind)},
              {"device", scene::DeviceNameOf(body, equipment)},
              {"shown", body.isShown},
              {"seen_through", body.isSeenThrough},
              {"colour", {colour.red, colour.green, colour.blue}},
              {"place", RowsOf(body.placement)},
              {"volume", measures.closed ? Json(measures.volume) : Json()},
              {"points", std::move(points)},
              {"triangles", mesh->triangles}};
}

/// The origin translations of the spindles that have equipment; a sub spindle's own x runs back from it.
Json DatumsOf(const Setup& setup) {
  Json datums = Json::array();
  for (const bool isSub : {false, true}) {
    const scene::Spindle& spindle = setup.equipment.spindles[isSub ? 1 : 0];
    if (spindle.clamp.params.type == 0 && spindle.billet.type == 0) continue;
    const double x = isSub ? setup.scene.subDatum - spindle.origin : spindle.origin;
    datums.push_back({{"spindle", isSub ? "sub" : "main"}, {"x", Rounded(x)}});
  }
  return datums;
}

std::string Dump(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace

Result<std::string> SceneJson(const Setup& setup) {
  std::string text = "{\"version\":" + std::to_string(kVersion) + ",\"project\":" + Dump(setup.project) +
                     ",\"spur\":" + std::to_string(setup.spur) + ",\"time\":" + Dump(setup.time) +
                     ",\"unit\":\"mm\",\n\"datums\":" + Dump(DatumsOf(setup)) + ",\n\"bodies\":[";
  for (const scene::SceneBody& body : setup.scene.bodies) {
    VANZET_TRY(const Json json, JsonOf(body, setup.equipment));
    text += (&body == &setup.scene.bodies.front() ? "\n" : ",\n") + Dump(json);
  }
  return text + "\n]}\n";
}

}  // namespace vanzet::results
