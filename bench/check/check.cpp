#include "check/check.h"

#include <algorithm>

#include "check/collector.h"
#include "check/rules.h"

namespace vanzet::check {

void Collector::Add(std::string_view rule, Details details) {
  const Rule* const row = FindRule(rule);
  std::optional<Severity> severity = row->severity;
  if (const auto changed = setup_.severities.find(rule); changed != setup_.severities.end())
    severity = changed->second;
  if (!severity) return;
  findings_.push_back({row, *severity, setup_.spur, details.where, std::move(details.sentence),
                       std::move(details.values), details.at, std::move(details.bodies), details.change,
                       std::move(details.area), details.part});
}

std::vector<Finding> Collector::Take() {
  std::ranges::stable_sort(findings_, {}, [](const Finding& finding) { return finding.rule->id; });
  return std::move(findings_);
}

Result<std::vector<Finding>> Check(const Setup& setup) {
  Collector findings(setup);
  CheckDevices(setup, findings);
  const HalfSections sections = HalfSections::Of(setup.scene);
  CheckBodies(setup, sections, findings);
  CheckClashes(setup, sections, findings);
  CheckReach(setup, sections, findings);
  CheckMakerData(setup, sections, findings);
  return findings.Take();
}

}  // namespace vanzet::check
