#pragma once

#include <cstdint>
#include <optional>

#include "cli/command.h"
#include "modeller/exchange.h"
#include "modeller/mesh.h"

/// The options of commands that read or write files of other programs.
namespace vanzet::cli {

/// The exchange program, with a limit of seconds if one is given; its progress is shown if standard error is
/// a terminal.
modeller::Exchange ExchangeWithProgress(std::optional<std::int32_t> seconds = {});

/// Adds the option --limit.
void AddLimit(Command& command, std::optional<std::int32_t>& seconds);

/// How finely bodies become facets, as far as it is given.
struct Fineness {
  std::optional<double> chord, angle;

  bool IsGiven() const { return chord || angle; }
  modeller::MeshTolerance Tolerance() const;
};

/// Adds the options --chord and --angle.
void AddFineness(Command& command, Fineness& fineness);

}  // namespace vanzet::cli
