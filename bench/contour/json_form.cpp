#include "contour/json_form.h"

#include <nlohmann/json.hpp>

namespace vanzet::contour {
namespace {

using Json = nlohmann::ordered_json;

Json JsonOf(const geometry::Span& span) {
  if (span.dir == geometry::LINEAR) return {{"kind", "line"}, {"end", JsonForm(span.p1)}};
  return {{"kind", "arc"},
          {"end", JsonForm(span.p1)},
          {"centre", JsonForm(span.pc)},
          {"direction", DirectionName(span.dir)}};
}

Json JsonOf(const Contour& contour) {
  Json spans = Json::array();
  for (const geometry::Span& span : contour.curve.spans) spans.push_back(JsonOf(span));
  return {{"number", contour.number},
          {"closed", contour.curve.Closed()},
          {"start", JsonForm(contour.curve.start)},
          {"spans", std::move(spans)}};
}

}  // namespace

Json JsonForm(const Contours& contours) {
  Json list = Json::array();
  for (const Contour& contour : contours) list.push_back(JsonOf(contour));
  return {{"unit", "mm"}, {"contours", std::move(list)}};
}

Json JsonForm(const geometry::Point& point) {
  return Json::array({point.x, point.y});
}

const char* DirectionName(int direction) {
  if (direction == geometry::LINEAR) return "none";
  return direction == geometry::ACW ? "anticlockwise" : "clockwise";
}

}  // namespace vanzet::contour
