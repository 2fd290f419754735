#pragma once

#include <cstdint>
#include <string>

#include "scene/camera.h"
#include "scene/scene.h"

namespace vanzet::scene {

struct PictureOptions {
  int width = 1200, height = 800;  ///< in pixels, above 0
  View view = View::kIso;
  bool isPerspective = false;
  bool isSection = false;  ///< what lies in front of the plane z = 0 is cut away
};

/// A picture, row by row from above; three bytes a pixel: red, green, blue.
struct Picture {
  int width = 0, height = 0;
  std::vector<std::uint8_t> bytes;
};

/// What the scene looks like, the same on every machine: no window system takes part. Empty scenes give empty
/// pictures. A fault when a body cannot be meshed.
Result<Picture> Draw(const Scene& scene, const PictureOptions& options);

}  // namespace vanzet::scene
