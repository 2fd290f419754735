#pragma once

#include <algorithm>
#include <charconv>
#include <string>
#include <string_view>
#include <vector>

#include "geometry/kurveex.h"

/// Contours as texts, for tests: vertices in the lines of docs/formats/contour.md, `xX yY` a line, `axX yY xU
/// yV` an arc anticlockwise, `txX yY xU yV` clockwise. Other lines are passed over, and so is a vertex that
/// lacks a number.
namespace geometry::testing {

/// With a point, whatever the locale.
inline std::string Text(double number) {
  char text[32];
  return {text, std::to_chars(text, text + sizeof text, number).ptr};
}

/// The numbers behind the letters x and y of a line.
inline std::vector<double> NumbersOf(std::string_view line) {
  std::vector<double> numbers;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] != 'x' && line[i] != 'y') continue;
    double number = 0;
    const char* const end = line.data() + line.size();
    if (std::from_chars(line.data() + i + 1, end, number).ec == std::errc()) numbers.push_back(number);
  }
  return numbers;
}

/// The vertices of a text; lines end with a line feed or a semicolon.
inline std::vector<spVertex> VerticesOf(std::string_view text) {
  std::vector<spVertex> vertices;
  while (!text.empty()) {
    const std::size_t end = text.find_first_of("\n;");
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    if (line.empty()) continue;
    const int type = line[0] == 'a' ? ACW : line[0] == 't' ? CW : LINEAR;
    if (type == LINEAR && line[0] != 'x') continue;
    const std::vector<double> at = NumbersOf(line);
    if (at.size() < (type == LINEAR ? 2u : 4u)) continue;
    const Point centre = type == LINEAR ? Point(0, 0) : Point(at[2], at[3]);
    vertices.emplace_back(vertices.empty() ? LINEAR : type, Point(at[0], at[1]), centre);
  }
  return vertices;
}

/// A contour of those vertices; null spans are kept.
inline KurveEx ContourOf(std::string_view text) {
  KurveEx k;
  for (const spVertex& v : VerticesOf(text)) k.Add(v, true);
  return k;
}
inline Kurve CompactOf(std::string_view text) {
  Kurve k;
  for (const spVertex& v : VerticesOf(text)) k.Add(v, true);
  return k;
}

}  // namespace geometry::testing
