#pragma once

#include <cstdint>
#include <set>
#include <string>

#include "scene/model.h"

namespace vanzet::scene {

struct PictureOptions {
  int width = 1200, height = 800;  ///< in pixels, above 0
  View view = View::kIso;
  bool isPerspective = false;
  std::set<std::string> fitted = {};  ///< the bodies that fill the picture, by their names; empty: all
};

/// A picture, row by row from above; three bytes a pixel: red, green, blue.
struct Picture {
  int width = 0, height = 0;
  std::vector<std::uint8_t> bytes;
};

/// The picture of a model, the same on every machine: no window system takes part. An empty model gives an
/// empty picture.
Picture Draw(const Model& model, const PictureOptions& options);

/// The colours of a picture.
struct Style {
  modeller::Colour background = {0.97, 0.975, 0.98};
  modeller::Colour ink = {0.10, 0.12, 0.15};
  modeller::Colour mark = {0.72, 0.10, 0.55};
  modeller::Colour marked = {0.98, 0.80, 0.12};  ///< bodies that are marked
};

struct DrawOptions {
  int width, height;  ///< in pixels, above 0
  int samples = 3;    ///< of a pixel in each direction: 1 is quick, 3 is smooth
  double line = 1;    ///< how wide lines and hatches are, in pixels of a usual screen
  Style style = {};
  BodyLooks looks = {};  ///< how bodies are seen that are not seen as the scene says
};

/// The picture of a model as a camera sees it. Any thread may draw: nothing but the arguments is used.
Picture Draw(const Model& model, const Look& look, const DrawOptions& options);

}  // namespace vanzet::scene
