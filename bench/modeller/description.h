#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "base/result.h"
#include "geometry/box.h"
#include "modeller/body.h"
#include "modeller/exchange.h"
#include "modeller/measures.h"
#include "modeller/named_place.h"

namespace vanzet::modeller {

/// A part of a file: a solid, or what a file has besides.
struct PartDescription {
  std::string name;  ///< empty where the file has none
  bool isSolid = false;
  geometry::Box3d box;
  Measures measures;
};

/// The axis about which most of a body is round: of all its cylinders, those of one axis with the largest
/// area.
struct RoundAxis {
  Axis axis;          ///< its direction has the length 1
  double radius = 0;  ///< of the largest of these cylinders
};

/// The content of a file with a body, for a person who has to say how it lies.
///
/// Units   millimetres; "unit" is that of the file, empty where it has none
struct FileDescription {
  std::string unit;
  bool hasSurfaces = false;
  std::vector<PartDescription> parts;
  std::optional<RoundAxis> round;  ///< nothing for facets, and without a cylinder
  std::vector<NamedPlace> places;  ///< of a STEP file: those of its roots, not those of their parts
};

/// The number of bodies in the file of a body that nothing holds together: more than 1 only for a STEP file
/// without an assembly about them.
int RootsOf(const Body& body);

/// Reads and measures a file by the exchange program. Fails as `ImportBody` does.
Result<FileDescription> DescribeFile(const std::filesystem::path& file, const Exchange& exchange);

}  // namespace vanzet::modeller
