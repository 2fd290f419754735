#pragma once

#include <filesystem>
#include <vector>

/// Giving up the rights of this process that reading or writing its files does not need. Code that a broken
/// file brought in can then read no other file, reach no network and start no program.
namespace vanzet::modeller {

/// The files that the process still needs.
struct Needs {
  std::vector<std::filesystem::path> filesToRead;
  std::filesystem::path folderToWrite;  ///< with the files in it; empty: none
};

/// The guards that are in force.
struct Confinement {
  int landlock = 0;  ///< the version of the kernel's Landlock, which guards files; 0: the kernel has none
  bool hasCallFilter = false;  ///< system calls that are not in a list fail: "Function not implemented"
};

/// Gives up all other rights for good. Files and folders that are open stay usable. A kernel without one of
/// the two guards has less to hold it; the other one and the limits hold all the same. Builds with the
/// address sanitizer give up nothing, since it needs more than they leave.
///
/// Requires  the process has one thread
Confinement Confine(const Needs& needs);

}  // namespace vanzet::modeller
