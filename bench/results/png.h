#pragma once

#include <string>

#include "base/result.h"
#include "scene/picture.h"

namespace vanzet::results {

/// The bytes of a PNG file with what an SVG picture shows, as large as the picture says.
Result<std::string> PngOf(const std::string& svg);

/// The same of a picture of the equipment.
Result<std::string> PngOf(const scene::Picture& picture);

}  // namespace vanzet::results
