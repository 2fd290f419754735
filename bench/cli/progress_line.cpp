#include "cli/progress_line.h"

#include <unistd.h>

#include <cmath>
#include <iostream>
#include <memory>

namespace vanzet::cli {
namespace {

constexpr std::chrono::milliseconds kPatience{500};
constexpr const char* kWipe = "\r\x1b[K";

}  // namespace

ProgressLine::ProgressLine(std::ostream& terminal, Clock clock)
    : terminal_(terminal), clock_(std::move(clock)), begun_(clock_()) {}

ProgressLine::~ProgressLine() {
  if (told_ >= 0) terminal_ << kWipe << std::flush;
}

void ProgressLine::Tell(double done) {
  const int percent = static_cast<int>(std::floor(done * 100));
  if (percent == told_ || clock_() - begun_ < kPatience) return;
  told_ = percent;
  terminal_ << kWipe << "3D files: " << percent << " %" << std::flush;
}

modeller::Exchange ToldExchange() {
  modeller::Exchange exchange = modeller::Exchange::OfProcess();
  if (isatty(STDERR_FILENO) == 0) return exchange;
  const auto line = std::make_shared<ProgressLine>(std::cerr);
  exchange.progress = [line](double done) {
    line->Tell(done);
    return true;
  };
  return exchange;
}

}  // namespace vanzet::cli
