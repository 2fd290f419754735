#include "results/definitions.h"

#include <string>
#include <utility>

namespace vanzet::results {
namespace {

Result<std::vector<SpurDefinition>> Read(std::vector<SpurDefinition> spurs, const vdm::VdmStore& store) {
  std::vector<vdm::Number> numbers;
  for (const SpurDefinition& spur : spurs) numbers.push_back(vdm::Number{spur.vdm});
  VANZET_TRY(const auto contents, store.Snapshots(numbers));
  for (SpurDefinition& spur : spurs) {
    const auto content = contents.find(vdm::Number{spur.vdm});
    if (content == contents.end()) continue;
    VANZET_TRY(spur.definition, project::ReadDefinition(content->second));
  }
  return spurs;
}

}  // namespace

Result<std::vector<SpurDefinition>> ReadDefinitions(const project::Project& project) {
  return ReadDefinitions(project, vdm::VdmStore(project.folder()));
}

Result<std::vector<SpurDefinition>> ReadDefinitions(const project::Project& project,
                                                    const vdm::VdmStore& store) {
  VANZET_TRY(const auto count, project.SpindleSpurs());
  std::vector<SpurDefinition> spurs;
  for (std::int32_t index = 0; index < count; ++index) spurs.push_back({index, project.DefinitionOf(index)});
  return Read(std::move(spurs), store);
}

Result<SpurDefinition> ReadDefinition(const project::Project& project, std::int32_t spur) {
  VANZET_TRY(const auto count, project.SpindleSpurs());
  if (spur >= count) {
    return Fault{.text = "spur " + std::to_string(spur) + " does not exist; the machine has " +
                         std::to_string(count) + (count == 1 ? " spur" : " spurs") + ", counted from 0",
                 .kind = FaultKind::kMissing};
  }
  VANZET_TRY(auto read, Read({{spur, project.DefinitionOf(spur)}}, vdm::VdmStore(project.folder())));
  return std::move(read.front());
}

}  // namespace vanzet::results
