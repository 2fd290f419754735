#pragma once

#include <filesystem>
#include <iosfwd>
#include <string_view>

#include "vdm/vdm.h"

namespace vanzet::vdm {

/// VDMs as text files, fit for a diff. Source: docs/formats/vdm.md
///
/// Errors   a fault with the file and, from reading, the line; reading refuses a file whole, writing leaves
/// the
///          old file as it was

/// Reads the text of a VDM; `name` stands for the file in faults.
Result<Vdm> ReadVdm(std::istream& text, std::string_view name);
Result<Vdm> ReadVdmFile(const std::filesystem::path& file);

/// Writes a VDM in the place of what the file held: wholly or not at all, and on the disk when this returns.
Result<void> WriteVdmFile(const std::filesystem::path& file, const Vdm& content);

}  // namespace vanzet::vdm
