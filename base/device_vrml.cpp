#include "base/device_vrml.h"

namespace vanzet {
namespace {

// The indents are part of the text. Not all of them are even: the simulation has always received these.
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

template <std::size_t N>
void Give(const std::string_view (&lines)[N], const LineSink& sink) {
  for (const std::string_view line : lines) sink(std::string(line));
}

/// The points of the plug, which follows the device.
void GivePlugPoints(std::string_view plug, std::string_view tip, const LineSink& sink) {
  const std::string indent(14, ' ');
  const std::string base = indent + std::string(plug);
  sink(base + " 0.000000 0.000000,\n");
  sink(base + " 0.000000 5.000000,\n");
  sink(base + " 10.000000 0.000000,\n");
  sink(indent + std::string(tip) + " 0.000000 0.000000\n");
}

}  // namespace

void GiveDeviceVrmlHead(const LineSink& sink) {
  Give(kHead, sink);
}

void GiveDeviceVrmlTail(std::string_view plug, std::string_view tip, const LineSink& sink) {
  Give(kShapeEnd, sink);
  sink("   },\n");
  sink("   DEF PLG_0 Transform {\n");
  Give(kMarkerBegin, sink);
  GivePlugPoints(plug, tip, sink);
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

}  // namespace vanzet
