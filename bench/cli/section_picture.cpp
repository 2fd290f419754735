#include "cli/section_picture.h"

#include <nlohmann/json.hpp>

#include "cli/output.h"

namespace vanzet::cli {
namespace {

Json PlaceOf(const geometry::Point& point, LengthUnit unit) {
  return {RoundedInUnit(point.x, unit), RoundedInUnit(point.y, unit)};
}

Json JsonOf(const section::SectionBody& body, LengthUnit unit) {
  const geometry::Box box = section::BoxOf(body.region);
  const double area = InUnit(InUnit(body.region.Area(), unit), unit);
  Json json = {{"name", body.name}};
  if (!body.device.empty()) json["device"] = body.device;
  json["area"] = area;
  json["box"] = {RoundedInUnit(box.min.x, unit), RoundedInUnit(box.min.y, unit),
                 RoundedInUnit(box.max.x, unit), RoundedInUnit(box.max.y, unit)};
  return json;
}

Json JsonOf(const section::Dimension& dimension, LengthUnit unit) {
  const bool isDiameter = dimension.direction == section::Direction::kDiameter;
  return {{"name", dimension.name},
          {"spindle", dimension.isSub ? "sub" : "main"},
          {"direction", isDiameter ? "diameter" : "along"},
          {"value", RoundedInUnit(dimension.Value(), unit)},
          {"from", PlaceOf(dimension.from, unit)},
          {"to", PlaceOf(dimension.to, unit)}};
}

}  // namespace

Result<void> PrintListing(const section::Section& section, const std::filesystem::path& file,
                          LengthUnit unit) {
  Json bodies = Json::array(), dimensions = Json::array();
  for (const section::SectionBody& body : section.bodies) bodies.push_back(JsonOf(body, unit));
  for (const section::Dimension& each : section.dimensions) dimensions.push_back(JsonOf(each, unit));
  Json listed = {{"path", file.string()},
                 {"unit", WordOf(unit)},
                 {"bodies", std::move(bodies)},
                 {"dimensions", std::move(dimensions)}};
  return PrintJson({{"files", Json::array({std::move(listed)})}});
}

section::PictureOptions OptionsForPng(section::PictureOptions options, const section::Section& section) {
  constexpr int kWidth = 1600;
  if (!options.width && !options.height && !section.bodies.empty()) options.width = kWidth;
  return options;
}

}  // namespace vanzet::cli
