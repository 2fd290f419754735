#pragma once

#include <filesystem>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>

#include "vdm/vdm.h"

namespace vanzet::vdm {

// VDMs as text files, fit for a diff: see docs/formats/vdm.md.

/// Reads the text of a VDM, whole or not at all. `name` is the name of the file in faults, which have the
/// line and its text; a text that is cut short or has another count of records is `kDamaged`.
Result<Vdm> ReadVdm(std::istream& text, std::string_view name);
Result<Vdm> ReadVdmFile(const std::filesystem::path& file);

/// Takes a piece of a text.
using TextSink = std::function<Result<void>(const std::string& text)>;

/// Writes the text of a VDM, piece by piece.
Result<void> WriteVdm(const Vdm& content, const TextSink& write);

/// Replaces the content of the file by the VDM; it is on the disk when the function returns. On a fault the
/// old file is unchanged.
Result<void> WriteVdmFile(const std::filesystem::path& file, const Vdm& content);

}  // namespace vanzet::vdm
