#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "project/definition.h"
#include "project/project.h"

/// What is made of a project for people and for other programs.
namespace vanzet::results {

/// A spindle spur and its definition, when it has one.
struct SpurDefinition {
  std::int32_t spur;
  std::uint32_t vdm;
  std::optional<project::Definition> definition = {};
};

/// The definitions of all spurs of the machine, as they were closed last. A damaged one is no fault.
Result<std::vector<SpurDefinition>> ReadDefinitions(const project::Project& project);

/// The same of one spur; a fault when the machine has none of that number.
Result<SpurDefinition> ReadDefinition(const project::Project& project, std::int32_t spur);

}  // namespace vanzet::results
