#include "cli/progress_line.h"

#include <unistd.h>

#include <cmath>
#include <iostream>
#include <memory>

namespace vanzet::cli {
namespace {

constexpr std::chrono::milliseconds kDelay{500};
constexpr const char* kEraseLine = "\r\x1b[K";

}  // namespace

ProgressLine::ProgressLine(std::ostream& terminal, Clock clock)
    : terminal_(terminal), clock_(std::move(clock)), start_(clock_()) {}

ProgressLine::~ProgressLine() {
  if (percent_ >= 0) terminal_ << kEraseLine << std::flush;
}

void ProgressLine::Report(double done) {
  const int percent = static_cast<int>(std::floor(done * 100));
  if (percent == percent_ || clock_() - start_ < kDelay) return;
  percent_ = percent;
  terminal_ << kEraseLine << "3D files: " << percent << " %" << std::flush;
}

}  // namespace vanzet::cli
