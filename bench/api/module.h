#pragma once

#include <filesystem>

#include "api/host.h"
#include "base/result.h"

namespace vanzet::api {

/// The module as it is found beside the executable `program`, then in ../lib, or where the environment
/// variable VANZET_MODULE says. A fault names the places that were looked at.
Result<std::filesystem::path> FindModule(const std::filesystem::path& program);

/// Loads the module, calls one of its exports ("ReOrgVdm", "mstart") on `host`, and unloads it. A VDM that
/// the module leaves open is told on the host's panel: its changes are lost.
Result<void> CallModule(const std::filesystem::path& module, const char* function, Host& host);

}  // namespace vanzet::api
