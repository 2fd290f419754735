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
  Erase();
}

void ProgressLine::Report(double done) {
  Show("3D files: " + std::to_string(static_cast<int>(std::floor(done * 100))) + " %");
}

void ProgressLine::Show(const std::string& text) {
  if (text == shown_ || clock_() - start_ < kDelay) return;
  shown_ = text;
  terminal_ << kEraseLine << text << std::flush;
}

void ProgressLine::Erase() {
  if (!shown_.empty()) terminal_ << kEraseLine << std::flush;
  shown_.clear();
}

}  // namespace vanzet::cli
