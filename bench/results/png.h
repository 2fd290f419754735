#pragma once

#include <string>

#include "base/result.h"
#include "scene/picture.h"

namespace vanzet::results {

/// The bytes of a PNG file with an SVG picture, in the size of the picture.
Result<std::string> PngOf(const std::string& svg);

/// The same for a picture of the equipment.
Result<std::string> PngOf(const scene::Picture& picture);

}  // namespace vanzet::results
