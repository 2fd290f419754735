#pragma once

#include <string>

#include "base/result.h"

namespace vanzet::cli {

/// The bytes of a PNG file with what an SVG picture shows, as large as the picture says.
Result<std::string> PngOf(const std::string& svg);

}  // namespace vanzet::cli
