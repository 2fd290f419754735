#pragma once

#include <filesystem>
#include <string>

#include "base/result.h"

namespace vanzet::platform {

/// The address of the exported symbol `name` in `module`, or null.
/// A null `module` is the running program, the host.
void* FindSymbol(void* module, const char* name);

/// Loads a library, which stays loaded until the process ends.
/// Errors   the file, or a library that it needs, does not exist; the fault has the loader's text
Result<void*> LoadLibraryFile(const std::filesystem::path& file);

/// The folder of the file that contains this code: the module, or a program that links it.
std::filesystem::path OwnFolder();

/// Has the library that contains this code stay loaded until the process ends, however often the host frees
/// it, where loading it again and again would cost the process what it does not get back.
void KeepLoaded();

}  // namespace vanzet::platform
