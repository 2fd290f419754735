#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "project/definition.h"
#include "project/project.h"
#include "vdm/store.h"

/// The results of a project for people and for other programs.
namespace vanzet::results {

/// A spindle spur and its definition, if it has one.
struct SpurDefinition {
  std::int32_t spur;
  std::uint32_t vdm;
  std::optional<project::Definition> definition = {};
};

/// Reads the definitions of all spurs of the machine, all of one state of the store. A damaged one is not a
/// fault.
Result<std::vector<SpurDefinition>> ReadDefinitions(const project::Project& project);
Result<std::vector<SpurDefinition>> ReadDefinitions(const project::Project& project,
                                                    const vdm::VdmStore& store);

/// The same of all spurs or of one, from the heads of the records alone: the sections of long records lack
/// items, but their counts are known. Fails with `kMissing` when the machine does not have the spur.
Result<std::vector<SpurDefinition>> ReadHeads(const project::Project& project,
                                              std::optional<std::int32_t> spur = {});
Result<std::vector<SpurDefinition>> ReadHeads(const project::Project& project, const vdm::VdmStore& store,
                                              std::optional<std::int32_t> spur = {});

/// Reads the definition of one spur. Fails with `kMissing` when the machine does not have the spur.
Result<SpurDefinition> ReadDefinition(const project::Project& project, std::int32_t spur);

}  // namespace vanzet::results
