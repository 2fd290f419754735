#pragma once

#include <filesystem>

#include "section/picture.h"

/// The view "section" of the command picture.
namespace vanzet::cli {

/// Prints {"files": [{"path", "unit", "bodies": [{"name", "device", "area", "box"}], "dimensions": [...]}]}:
/// lengths and areas in the unit, a box as x and radius of two corners.
Result<void> PrintListing(const section::Section& section, const std::filesystem::path& file,
                          LengthUnit unit);

/// The size in pixels of a PNG file of a section when none was given, or the one that was.
section::PictureOptions OptionsForPng(section::PictureOptions options, const section::Section& section);

}  // namespace vanzet::cli
