#include "simulation/vrml_text.h"

#include <algorithm>
#include <array>

#include "base/numbers.h"
#include "macro/command_text.h"

namespace vanzet::simulation {
namespace {

// The indents are part of the text. Not all of them are even: they are what the simulation has always got.
// clang-format off
constexpr std::string_view kHead[] = {
    "#VRML V2.0 utf8\n",
    "DEF Name Transform {\n",
    " children [\n",
    "   Transform {\n",
    "     translation 0 0 0\n",
    "     children [\n",
    "       Shape {\n",
    "         appearance Appearance {\n",
    "           material Material {\n",
    "              diffuseColor 0.6 0.6 0.6\n",
    "           }\n",
    "         }\n",
    "         geometry IndexedFaceSet {\n",
    "           ccw TRUE\n",
    "           solid FALSE\n",
};

// Closes the shape of the device, and that of a marker.
constexpr std::string_view kShapeEnd[] = {
    "         }\n",
    "       }\n",
    "     ]\n",
};

// A marker is a red tetrahedron: its name, this, its points, its faces.
constexpr std::string_view kMarkerBegin[] = {
    "     translation 0 0 0\n",
    "     children [\n",
    "       Shape {\n",
    "         appearance Appearance {\n",
    "           material Material {\n",
    "             diffuseColor 1 0 0\n",
    "           }\n",
    "         }\n",
    "         geometry IndexedFaceSet {\n",
    "           ccw TRUE\n",
    "           solid FALSE\n",
    "           coord Coordinate { point [\n",
};
constexpr std::string_view kMarkerFaces[] = {
    "             ]\n",
    "           }\n",
    "           coordIndex [\n",
    "             0 2 1 -1,\n",
    "             0 1 3 -1,\n",
    "             0 3 2 -1,\n",
    "             1 2 3 -1]\n",
};

// The socket at the origin.
constexpr std::string_view kSocketPoints[] = {
    "             0.000000 0.000000 0.000000,\n",
    "             0.000000 0.000000 5.000000,\n",
    "             0.000000 10.000000 0.000000,\n",
    "             -15.000000 0.000000 0.000000\n",
};
// clang-format on

constexpr double kMarkerLength = 15;

template <std::size_t N>
void Give(const std::string_view (&lines)[N], const LineSink& sink) {
  for (const std::string_view line : lines) sink(std::string(line));
}

/// The plug behind the device.
void GivePlugPoints(double offset, const LineSink& sink) {
  const std::string indent(14, ' ');
  const std::string base = indent + macro::FormatReal(-offset);
  sink(base + " 0.000000 0.000000,\n");
  sink(base + " 0.000000 5.000000,\n");
  sink(base + " 10.000000 0.000000,\n");
  sink(indent + macro::FormatReal(-offset - kMarkerLength) + " 0.000000 0.000000\n");
}

void GiveFacetLine(std::string_view line, const LineSink& sink) {
  const std::size_t indent =
      static_cast<std::size_t>(std::ranges::find_if_not(line, IsWhiteSpace) - line.begin());
  sink(std::string(12, ' ').append(line.substr(indent)) + "\n");
}

}  // namespace

void GiveVrmlHead(const LineSink& sink) {
  Give(kHead, sink);
}

void GiveFacets(platform::LineReader& file, const LineSink& sink) {
  std::string_view line;
  do {
    if (!file.Next(line)) return;
  } while (line.find("coord Coordinate") == std::string_view::npos);
  GiveFacetLine(line, sink);
  for (const std::string_view lastOfStage : {"coordIndex", "]"}) {
    do {
      if (!file.Next(line)) return;
      GiveFacetLine(line, sink);
    } while (line.find(lastOfStage) == std::string_view::npos);
  }
}

void GiveVrmlTail(double offset, const LineSink& sink) {
  Give(kShapeEnd, sink);
  sink("   },\n");
  sink("   DEF PLG_0 Transform {\n");
  Give(kMarkerBegin, sink);
  GivePlugPoints(offset, sink);
  Give(kMarkerFaces, sink);
  Give(kShapeEnd, sink);
  sink("   },\n");
  sink("   DEF SCK_0 Transform {\n");
  Give(kMarkerBegin, sink);
  Give(kSocketPoints, sink);
  Give(kMarkerFaces, sink);
  Give(kShapeEnd, sink);
  sink("   }\n");
  sink(" ]\n");
  sink("}\n");
}

}  // namespace vanzet::simulation
