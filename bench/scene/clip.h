#pragma once

#include <optional>

#include "scene/surface.h"

/// The section by the plane z = 0: what lies above it is taken away.
namespace vanzet::scene {

/// What is left of a facet: none, one or two.
std::vector<Facet> Below(const Facet& facet);

struct Stroke {
  geometry::Point3d from, to;
};

/// What is left of a line.
std::optional<Stroke> Below(const Stroke& stroke);

/// Where the plane cuts a facet.
std::optional<Stroke> CutOf(const Facet& facet);

}  // namespace vanzet::scene
