#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "api/host.h"

/// The definitions of a project's spindle spurs, created and upgraded by the module.
namespace vanzet::api {

/// The definition of a spur, as a command reports it.
struct DefinitionState {
  std::int32_t spur;
  std::uint32_t vdm;
  bool exists = false;
  std::int32_t version = 0;
  std::size_t operations = 0;
  bool isCurrent = false;  ///< of the version that the module makes, with all operations
};

/// Has the module create the definitions that are missing, and upgrade the older ones. Returns all of them.
/// Nothing is in the project before the host commits.
/// Errors   a definition that is open in another process or is not current afterwards; `kReported` when the
///          module has reported faults
Result<std::vector<DefinitionState>> UpgradeDefinitions(const std::filesystem::path& module, Host& host);

/// The same for work on definitions, which does nothing when all are current. Otherwise `announce`, which may
/// be empty, is given a sentence before it begins. Fails for a definition that is newer than the module when
/// others have to be upgraded: the module would delete it.
Result<void> UpgradeWhereNeeded(const std::filesystem::path& module, Host& host,
                                const std::function<void(const std::string& sentence)>& announce);

}  // namespace vanzet::api
