#pragma once

#include <filesystem>

namespace vanzet {

/// The file of the running program. Empty when the system does not know it.
std::filesystem::path ProgramFile();

/// The folder of the workbench's own files: that of the environment variable VANZET_SHARE, else
/// share/vanzet beside the folder of programs, lib or lib/vanzet.
std::filesystem::path ShareFolder(const std::filesystem::path& programFolder);

/// The running program and its own files.
struct Places {
  std::filesystem::path program;  ///< the executable
  std::filesystem::path share;    ///< the workbench's own files

  /// The places of this process.
  static Places OfProcess();

  /// Another program of the workbench; all of them are in one folder.
  std::filesystem::path Sibling(const char* name) const { return program.parent_path() / name; }
};

}  // namespace vanzet
