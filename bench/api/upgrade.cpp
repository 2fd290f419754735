#include "api/upgrade.h"

#include <algorithm>

#include "api/module.h"
#include "project/definition.h"

namespace vanzet::api {
namespace {

/// A definition that the module has made.
constexpr std::size_t kLeastOperations = 18;

using States = std::vector<DefinitionState>;

std::string NameOf(const DefinitionState& state) {
  return "spur " + std::to_string(state.spur) + ": VDM " + std::to_string(state.vdm);
}

Result<States> StatesOf(const Host& host) {
  VANZET_TRY(const auto spurs, host.project.SpindleSpurs());
  std::vector<vdm::Number> numbers;
  for (std::int32_t spur = 0; spur < spurs; ++spur) {
    numbers.push_back(vdm::Number{host.project.DefinitionOf(spur)});
  }
  VANZET_TRY(const auto heads, host.store.Heads(numbers));
  States states;
  for (std::int32_t spur = 0; spur < spurs; ++spur) {
    DefinitionState& state = states.emplace_back(spur, host.project.DefinitionOf(spur));
    const auto head = heads.find(vdm::Number{state.vdm});
    if (head == heads.end()) continue;
    state.exists = true;
    state.version = project::ReadDefinition(head->second).version;
    state.operations = head->second.size();
    state.isCurrent = state.version == project::kDefinitionVersion && state.operations >= kLeastOperations;
  }
  return states;
}

Result<void> CheckUpgraded(const DefinitionState& state, const Host& host) {
  VANZET_TRY(const auto isOpen, host.store.IsOpen(state.vdm));
  if (isOpen) {
    return Fault{.text = NameOf(state) + " is open in another process and was not upgraded",
                 .kind = FaultKind::kBusy};
  }
  if (state.isCurrent) return {};
  return Fault{NameOf(state) + " is not a definition of version " +
               std::to_string(project::kDefinitionVersion) + " after the upgrade"};
}

std::string Counted(std::ptrdiff_t count) {
  return std::to_string(count) + (count == 1 ? " definition" : " definitions");
}

/// "2 definitions are missing and are created first". Requires: one is not current.
std::string SentenceOf(const States& states) {
  const auto missing = std::ranges::count(states, false, &DefinitionState::exists);
  const auto older = std::ranges::count(states, false, &DefinitionState::isCurrent) - missing;
  const auto are = [](std::ptrdiff_t count) { return count == 1 ? "is" : "are"; };
  std::string sentence;
  if (missing > 0) {
    sentence = Counted(missing) + " " + are(missing) + " missing and " + are(missing) + " created first";
  }
  if (older > 0) {
    sentence += (missing > 0 ? "; " : "") + Counted(older) + " " + are(older) + " of an older version and " +
                are(older) + " upgraded first";
  }
  return sentence;
}

}  // namespace

Result<States> UpgradeDefinitions(const std::filesystem::path& module, Host& host) {
  // The module would go on with one spur where the machine cannot be read.
  VANZET_DO(host.project.SpindleSpurs());
  const int faultsBefore = host.panel.faults();
  VANZET_DO(CallModule(module, "ReOrgVdm", host));
  if (host.panel.faults() > faultsBefore) return ReportedFault();
  VANZET_TRY(auto states, StatesOf(host));
  for (const DefinitionState& state : states) VANZET_DO(CheckUpgraded(state, host));
  return states;
}

Result<void> UpgradeWhereNeeded(const std::filesystem::path& module, Host& host,
                                const std::function<void(const std::string&)>& announce) {
  VANZET_TRY(const auto states, StatesOf(host));
  if (std::ranges::all_of(states, &DefinitionState::isCurrent)) return {};
  const auto newer = std::ranges::find_if(
      states, [](const DefinitionState& state) { return state.version > project::kDefinitionVersion; });
  if (newer != states.end()) {
    return Fault{NameOf(*newer) + " has version " + std::to_string(newer->version) +
                 ", which is newer than this program; it must not be upgraded"};
  }
  if (announce) announce(SentenceOf(states));
  VANZET_DO(UpgradeDefinitions(module, host));
  return {};
}

}  // namespace vanzet::api
