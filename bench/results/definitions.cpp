#include "results/definitions.h"

#include <algorithm>
#include <string>

#include "vdm/store.h"

namespace vanzet::results {
namespace {

Result<SpurDefinition> Read(std::int32_t index, const project::Project& project, const vdm::VdmStore& store) {
  SpurDefinition spur{index, project.DefinitionOf(index)};
  VANZET_TRY(const auto numbers, store.Numbers());
  if (std::ranges::find(numbers, vdm::Number{spur.vdm}) == numbers.end()) return spur;
  VANZET_TRY(const auto content, store.Snapshot(spur.vdm));
  VANZET_TRY(auto definition, project::ReadDefinition(content));
  spur.definition = std::move(definition);
  return spur;
}

}  // namespace

Result<std::vector<SpurDefinition>> ReadDefinitions(const project::Project& project) {
  VANZET_TRY(const auto count, project.SpindleSpurs());
  const vdm::VdmStore store(project.folder());
  std::vector<SpurDefinition> spurs;
  for (std::int32_t index = 0; index < count; ++index) {
    VANZET_TRY(auto spur, Read(index, project, store));
    spurs.push_back(std::move(spur));
  }
  return spurs;
}

Result<SpurDefinition> ReadDefinition(const project::Project& project, std::int32_t spur) {
  VANZET_TRY(const auto count, project.SpindleSpurs());
  if (spur >= count) {
    return Fault{.text = "spur " + std::to_string(spur) + " does not exist; the machine has " +
                         std::to_string(count) + (count == 1 ? " spur" : " spurs") + ", counted from 0",
                 .kind = FaultKind::kMissing};
  }
  return Read(spur, project, vdm::VdmStore(project.folder()));
}

}  // namespace vanzet::results
