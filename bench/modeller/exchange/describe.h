#pragma once

#include <filesystem>

#include "base/result.h"
#include "modeller/description.h"

namespace vanzet::modeller {

/// Reads a file and measures its parts. The parts of a STEP file have the names of its products.
Result<FileDescription> Describe(const std::filesystem::path& file);

}  // namespace vanzet::modeller
