#include "results/definitions.h"

#include <string>
#include <utility>

#include "project/project_store.h"

namespace vanzet::results {
namespace {

using Spurs = std::vector<SpurDefinition>;

std::vector<vdm::Number> NumbersOf(const Spurs& spurs) {
  std::vector<vdm::Number> numbers;
  for (const SpurDefinition& spur : spurs) numbers.push_back(vdm::Number{spur.vdm});
  return numbers;
}

Result<Spurs> Read(Spurs spurs, const vdm::VdmStore& store) {
  VANZET_TRY(const auto contents, store.Snapshots(NumbersOf(spurs)));
  for (SpurDefinition& spur : spurs) {
    const auto content = contents.find(vdm::Number{spur.vdm});
    if (content == contents.end()) continue;
    VANZET_TRY(spur.definition, project::ReadDefinition(content->second));
  }
  return spurs;
}

Result<Spurs> SpursOf(const project::Project& project, std::optional<std::int32_t> only = {}) {
  VANZET_TRY(const auto count, project.SpindleSpurs());
  if (only && *only >= count) {
    return Fault{.text = "spur " + std::to_string(*only) + " does not exist; the machine has " +
                         std::to_string(count) + (count == 1 ? " spur" : " spurs") + ", counted from 0",
                 .kind = FaultKind::kMissing};
  }
  Spurs spurs;
  for (std::int32_t index = 0; index < count; ++index) {
    if (!only || *only == index) spurs.push_back({index, project.DefinitionOf(index)});
  }
  return spurs;
}

}  // namespace

Result<Spurs> ReadDefinitions(const project::Project& project) {
  return ReadDefinitions(project, project::StoreOf(project));
}

Result<Spurs> ReadDefinitions(const project::Project& project, const vdm::VdmStore& store) {
  VANZET_TRY(auto spurs, SpursOf(project));
  return Read(std::move(spurs), store);
}

Result<Spurs> ReadHeads(const project::Project& project, std::optional<std::int32_t> spur) {
  return ReadHeads(project, project::StoreOf(project), spur);
}

Result<Spurs> ReadHeads(const project::Project& project, const vdm::VdmStore& store,
                        std::optional<std::int32_t> spur) {
  VANZET_TRY(auto spurs, SpursOf(project, spur));
  VANZET_TRY(const auto heads, store.Heads(NumbersOf(spurs)));
  for (SpurDefinition& each : spurs) {
    const auto head = heads.find(vdm::Number{each.vdm});
    if (head != heads.end()) each.definition = project::ReadDefinition(head->second);
  }
  return spurs;
}

Result<SpurDefinition> ReadDefinition(const project::Project& project, std::int32_t spur) {
  VANZET_TRY(auto spurs, SpursOf(project, spur));
  VANZET_TRY(auto read, Read(std::move(spurs), project::StoreOf(project)));
  return std::move(read.front());
}

}  // namespace vanzet::results
