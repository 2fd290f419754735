#pragma once

#include <filesystem>
#include <optional>

#include "base/length_unit.h"
#include "cli/commands.h"
#include "sheet/project_sheet.h"

/// The sheets of all projects of a folder, with an index. docs/sheet.md.
namespace vanzet::cli {

struct SheetFolder {
  std::filesystem::path projects;  ///< the folder whose folders are projects; others in it are passed over
  std::filesystem::path out;       ///< gets index.html, and the sheets in its folder sheets
  sheet::Options options;
  const Translations& texts;       ///< in the language of the options
  std::optional<LengthUnit> unit;  ///< nothing: that of each project
  bool isJson = false, isStrict = false;
};

/// Writes the sheets and prints the files. A project whose sheet cannot be made is on the panel and in the
/// index, the others get theirs, and the work fails at its end.
Result<void> WriteSheetFolder(const SheetFolder& folder, Context& context);

}  // namespace vanzet::cli
