#pragma once

#include <filesystem>

/// Giving up the rights of this process that reading or writing one file does not need. Code that a broken
/// file brought in can then read no other file, reach no network and start no program.
namespace vanzet::modeller {

/// The files that the process still needs. An empty path stands for nothing.
struct Needs {
  std::filesystem::path fileToRead;
  std::filesystem::path folderToWrite;  ///< with the files in it
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
