#pragma once

#include <algorithm>
#include <charconv>
#include <string>
#include <string_view>
#include <vector>

#include "geometry/kurveex.h"

/// Contours as texts, for tests: vertices in the lines of docs/formats/contour.md, `xX yY` a line, `axX yY xU
/// yV` an arc anticlockwise, `txX yY xU yV` clockwise. Other lines are skipped, and so is a vertex that
/// lacks a number.
namespace geometry::testing {

/// With a point, whatever the locale.
inline std::string Text(double number) {
  char text[32];
  return {text, std::to_chars(text, text + sizeof text, number).ptr};
}

/// The numbers after the letters x and y of a line.
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

/// The content of remarks of the form `rem offset 2 code 0 spans 4`: a distance to the left, and its result;
/// -1 where nothing is said.
struct Expectation {
  double offset = 0;
  int code = -1;
  int spans = -1;
};

inline std::vector<Expectation> ExpectationsOf(std::string_view text) {
  std::vector<Expectation> expectations;
  constexpr std::string_view kWord = "rem offset ";
  for (std::size_t at = text.find(kWord); at != std::string_view::npos; at = text.find(kWord, at + 1)) {
    const std::string_view line = text.substr(at, text.find('\n', at) - at);
    const auto read = [line](std::string_view word, auto& number) {
      const std::size_t found = line.find(word);
      if (found == std::string_view::npos) return;
      std::from_chars(line.data() + found + word.size(), line.data() + line.size(), number);
    };
    Expectation& expectation = expectations.emplace_back();
    read("offset ", expectation.offset);
    read(" code ", expectation.code);
    read(" spans ", expectation.spans);
  }
  return expectations;
}

/// The distances in those remarks.
inline std::vector<double> DistancesOf(std::string_view text) {
  std::vector<double> distances;
  for (const Expectation& expectation : ExpectationsOf(text)) distances.push_back(expectation.offset);
  return distances;
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
