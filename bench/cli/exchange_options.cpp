#include "cli/exchange_options.h"

#include <unistd.h>

#include <iostream>
#include <memory>

#include "cli/arguments.h"
#include "cli/progress_line.h"

namespace vanzet::cli {

modeller::Exchange ExchangeWithProgress(std::optional<std::int32_t> seconds) {
  modeller::Exchange exchange = modeller::Exchange::OfProcess();
  if (seconds) exchange.limits.seconds = *seconds;
  if (isatty(STDERR_FILENO) == 0) return exchange;
  const auto line = std::make_shared<ProgressLine>(std::cerr);
  exchange.progress = [line](double done) {
    line->Report(done);
    return true;
  };
  return exchange;
}

void AddLimit(Command& command, std::optional<std::int32_t>& seconds) {
  command.AddOption("--limit", "SECONDS",
                    "how long the processor may work on files of other programs; default: 120",
                    StoreInteger(seconds, 1, modeller::kMostSeconds));
}

modeller::MeshTolerance Fineness::Tolerance() const {
  const modeller::MeshTolerance usual;
  return {chord.value_or(usual.chord), angle.value_or(usual.angle)};
}

void AddFineness(Command& command, Fineness& fineness) {
  // The ranges are those of modeller::MeshOf.
  command.AddOption("--chord", "MM",
                    "how far facets may be from the surface, in millimetres, 0.005 to 100; default: 0.05",
                    StoreReal(fineness.chord, 0.005, 100));
  command.AddOption("--angle", "DEGREES", "how much neighbouring facets may turn, 2 to 90; default: 10",
                    StoreReal(fineness.angle, 2, 90));
}

}  // namespace vanzet::cli
