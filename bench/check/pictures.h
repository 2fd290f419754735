#pragma once

#include <string>
#include <vector>

#include "check/report.h"
#include "scene/equipment.h"
#include "scene/scene.h"

/// Findings as pictures, with what is wrong in red.
namespace vanzet::check {

struct Picture {
  std::string name;  ///< of its file: "EQ-201-spur0-main-section.svg"
  std::string bytes;
};

/// A set-up that findings are about.
///
/// Owns     nothing
struct ShownSetup {
  const scene::Equipment& equipment;
  const scene::Scene& scene;
};

/// A finding by its half section, and in space: cut open in the plane of the finding, with its bodies seen
/// and all others seen through. `number` tells findings of one rule and place apart: 1 is the first.
/// Fails only for a reason of the system, and when the work is cancelled.
Result<std::vector<Picture>> PicturesOf(const Finding& finding, int number, const ShownSetup& setup,
                                        const Style& style);

}  // namespace vanzet::check
