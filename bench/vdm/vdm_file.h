#pragma once

#include <filesystem>
#include <iosfwd>
#include <string_view>

#include "vdm/vdm.h"

namespace vanzet::vdm {

// VDMs as text files, fit for a diff: see docs/formats/vdm.md.

/// Reads the text of a VDM, whole or not at all; `name` stands for the file in faults, which tell the line.
Result<Vdm> ReadVdm(std::istream& text, std::string_view name);
Result<Vdm> ReadVdmFile(const std::filesystem::path& file);

/// Writes a VDM in the place of what the file held; it is on the disk when this returns. On a fault the old
/// file stays as it was.
Result<void> WriteVdmFile(const std::filesystem::path& file, const Vdm& content);

}  // namespace vanzet::vdm
