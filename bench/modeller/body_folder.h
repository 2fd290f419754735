#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "modeller/body_table.h"
#include "modeller/exchange.h"

namespace vanzet::modeller {

/// A file with a body. Its stem is the name of the body. The body lies as the text beside the file says, if
/// there is one: laying.h.
struct BodyFile {
  std::string name;
  std::filesystem::path path;
};

/// Whether the ending of the file name is that of a format for bodies.
bool IsBodyFile(const std::filesystem::path& path);

/// Returns the named bodies of a folder in the order of their names, without reading any file. Of files whose
/// names differ only in case or ending, one counts: `.step` before `.stp`, `.brep` and `.stl`, then the order
/// of bytes. A folder that does not exist has none.
std::vector<BodyFile> BodyFilesIn(const std::filesystem::path& folder);

/// The file of the body with that name, in capitals or small letters. Fails with `kMissing`.
Result<BodyFile> FindBodyFile(std::string_view name, const std::filesystem::path& folder);

/// Returns the number of the body with that name. A body that is not in the table yet is read from the folder
/// and added under its name. Fails with `kMissing` when neither has it, and when its file cannot be read.
Result<std::int32_t> FindOrImportBody(std::string_view name, BodyTable& table,
                                      const std::filesystem::path& folder, const Exchange& exchange,
                                      const Foresight& foresight);

/// Reads the bodies with these names from the folder, all by one process, each once. The fault of a body that
/// the folder does not have is `kMissing`.
std::map<std::string, Result<Body>> ImportNamedBodies(const std::set<std::string>& names,
                                                      const std::filesystem::path& folder,
                                                      const Exchange& exchange, const Foresight& foresight);

}  // namespace vanzet::modeller
