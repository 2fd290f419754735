#pragma once

#include <filesystem>

#include "base/result.h"

/// Libraries of the workbench that only some commands need. Each is loaded by the first function that needs
/// it, since the libraries from outside that it brings along take longer to load than most commands to run.
namespace vanzet::process {

/// Finds a library next to the executable `program`, then in ../lib/vanzet of an installation, then in ../lib
/// of a build folder. Fails with `kMissing` and the names of all three places.
Result<std::filesystem::path> FindLibrary(const std::filesystem::path& program, const char* file);

/// Loads the library, calls its function of that name, which has no arguments, and returns the address that
/// the function returns. The library stays loaded.
///
/// Where the system's loader fails, it is not asked again: it may have left libraries of which nothing is
/// initialised, and through which no exception finds its way. Each later call fails for the same reason.
Result<const void*> LoadOwnLibrary(const char* file, const char* function);

}  // namespace vanzet::process
