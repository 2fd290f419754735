#include <nlohmann/json.hpp>

#include "contour/json_form.h"

#include "contour_fixture.h"

namespace vanzet::contour {
namespace {

class JsonFormTest : public ContourTest {};

TEST_F(JsonFormTest, WritesEverySpanByItsEnd) {
  const auto json = JsonForm(Read("k4 e x0 y0\nx10 y0.5\nax10 y10.5 x10 y5.5\nek\n"));
  EXPECT_EQ(json, nlohmann::ordered_json::parse(R"({"unit": "mm", "contours": [
    {"number": 4, "closed": false, "start": [0.0, 0.0], "spans": [
      {"kind": "line", "end": [10.0, 0.5]},
      {"kind": "arc", "end": [10.0, 10.5], "centre": [10.0, 5.5], "direction": "anticlockwise"}]}]})"));
}

}  // namespace
}  // namespace vanzet::contour
