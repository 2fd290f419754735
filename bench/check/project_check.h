#pragma once

#include <optional>
#include <vector>

#include "check/setup.h"
#include "modeller/exchange.h"
#include "project/project.h"

namespace vanzet::check {

/// The findings of all spurs of a project that have a definition, or of one: with the project's catalogue,
/// its maker data, its job and its severities.
/// Errors   kMissing without such a spur or any definition; kDamaged for a damaged one; a catalogue, maker
///          data or a severity that cannot be read
Result<std::vector<Finding>> CheckProject(const project::Project& project, std::optional<std::int32_t> spur,
                                          const modeller::Exchange& exchange);

/// The severities that the settings of a project have for the rules.
/// Errors   a rule or a severity that does not exist, with its line
Result<Severities> SeveritiesOf(const project::BenchIni& settings);

/// The knowledge that all set-ups of a project share.
struct Terms {
  catalogue::Shop shop;
  Job job;
  Severities severities;
};

/// A catalogue that does not exist has no devices, as in the dialog.
/// Errors   a catalogue, maker data or a severity that cannot be read
Result<Terms> TermsOf(const project::Project& project);

/// A spur whose equipment is known, stored or not.
///
/// Owns     nothing
struct KnownSetup {
  std::int32_t spur;
  const project::Definition& definition;
  const scene::Equipment& equipment;
  const scene::Scene& scene;
};
Result<std::vector<Finding>> CheckKnown(const KnownSetup& known, const project::Project& project,
                                        const Terms& terms);

}  // namespace vanzet::check
