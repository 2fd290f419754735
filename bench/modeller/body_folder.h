#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "modeller/body_table.h"
#include "modeller/exchange.h"

namespace vanzet::modeller {

/// A file that holds a body. Its stem is the body's name.
struct BodyFile {
  std::string name;
  std::filesystem::path path;
};

/// Whether a body can be read from a file of that name, by its ending.
bool IsBodyFile(const std::filesystem::path& path);

/// The named bodies of a folder, in the order of their names, without reading any. Of files whose names
/// differ by case or ending alone, one counts: `.step` before `.stp`, `.brep` and `.stl`, then the order of
/// bytes. A folder that is not there has none.
std::vector<BodyFile> BodyFilesIn(const std::filesystem::path& folder);

/// The number of the body with that name: of the table, or read from the folder, put into the table under its
/// name, and kept. A fault when neither has it, or when its file cannot be read.
Result<std::int32_t> NumberOfNamed(std::string_view name, BodyTable& table,
                                   const std::filesystem::path& folder, const Exchange& exchange);

}  // namespace vanzet::modeller
