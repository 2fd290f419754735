#pragma once

#include <filesystem>
#include <string>

#include "base/result.h"

namespace vanzet::platform {

/// The address of the exported symbol `name` in `module`, or null.
/// A null `module` is the running program, the host.
void* FindSymbol(void* module, const char* name);

/// Loads a library; it stays as long as the process lives.
/// Errors   the file is missing, or something that it needs is; the fault tells which, as the loader does
Result<void*> LoadLibraryFile(const std::filesystem::path& file);

/// The folder of the file that this code was loaded from: the module, or a program that it is linked into.
std::filesystem::path OwnFolder();

}  // namespace vanzet::platform
