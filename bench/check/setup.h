#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "catalogue/shop.h"
#include "check/finding.h"
#include "project/definition.h"
#include "scene/equipment.h"
#include "scene/scene.h"

/// A set-up to be checked, and what the project says of the job and of the rules.
namespace vanzet::check {

/// The job's own figures; what is not given is not compared.
struct Job {
  std::optional<double> speed;  ///< 1/min
  std::optional<double> force;  ///< kN of a set of jaws
  double density = 7.85;        ///< kg/dm3
};

/// The severities that a project changes, by the numbers of the rules; nothing: the rule is off.
using Severities = std::map<std::string, std::optional<Severity>, std::less<>>;

/// All that is known of a spur.
///
/// Owns     nothing
struct Setup {
  std::int32_t spur = 0;
  const project::Definition& definition;
  const scene::Equipment& equipment;
  const scene::Scene& scene;
  const catalogue::Shop& shop;
  Job job = {};
  Severities severities = {};
  /// Whether the file of an own device can be read; without the function it is not looked for.
  std::function<Result<void>(const std::string& file)> ownDevice = {};
};

}  // namespace vanzet::check
