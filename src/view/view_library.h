#pragma once

#include <filesystem>
#include <memory>

#include "base/result.h"
#include "view/view.h"

namespace vanzet::view {

/// A view from a library of its own: view/view_entry.h. The library stays loaded.
/// Errors   what is missing to use it: the file, what it needs, its entry, a display
Result<std::unique_ptr<View>> ViewFromLibrary(const std::filesystem::path& file);

}  // namespace vanzet::view
