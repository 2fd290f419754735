#pragma once

#include <string>
#include <vector>

#include "geometry/box.h"
#include "geometry/region.h"
#include "scene/equipment.h"
#include "scene/scene.h"

/// The half section of a set-up: what the plane through the axis cuts above it. docs/section.md.
///
/// Space    the turning plane: x along the main spindle's axis, away from the spindle, y the radius;
///          millimetres
namespace vanzet::section {

struct SectionBody {
  std::string name;    ///< that of the body in space: "main clamp", "sub jaw 1"
  std::string device;  ///< its name in the catalogue; empty for what is not a device
  scene::Kind kind = scene::Kind::kClamp;
  bool isSub = false;
  geometry::Region region;
};

enum class Direction { kAlong, kDiameter };

/// A measure of the set-up.
struct Dimension {
  const char* name;  ///< English, the key of its translations
  bool isSub = false;
  Direction direction = Direction::kAlong;
  geometry::Point from, to;  ///< of a diameter: a point of the axis, and one of the contour above it

  double Value() const;  ///< a length, or the whole diameter
};

/// The origin translation of a spindle.
struct Datum {
  bool isSub = false;
  geometry::Point place;
};

struct Section {
  std::vector<SectionBody> bodies;  ///< devices, then billets, then finish parts
  std::vector<Dimension> dimensions;
  std::vector<Datum> datums;
};

/// Cuts the bodies that are shown; of the jaws the upright one, in its middle. A body made from values has
/// its true outline, any other that of its facets.
/// Fails only for a reason of the system, and when the work is cancelled; a body without facets is left out.
Result<Section> MakeSection(const scene::Equipment& equipment, const scene::Scene& scene);

/// The extents of a region; cleared for an empty one.
geometry::Box BoxOf(const geometry::Region& region);
geometry::Box BoxOf(const Section& section);

}  // namespace vanzet::section
