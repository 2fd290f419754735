#pragma once

#include <filesystem>

#include "api/host.h"
#include "base/result.h"

namespace vanzet::api {

/// Finds the module as `process::FindLibrary` does; the environment variable VANZET_MODULE names another.
/// Fails with `kMissing` and the names of the places.
Result<std::filesystem::path> FindModule(const std::filesystem::path& program);

/// Loads the module, calls one of its exports ("ReOrgVdm", "mstart") on `host`, and unloads it. A VDM that
/// the module leaves open is reported on the panel of the host: its changes are lost.
Result<void> CallModule(const std::filesystem::path& module, const char* function, Host& host);

}  // namespace vanzet::api
