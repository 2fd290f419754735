#pragma once

#include <deque>
#include <istream>
#include <string>

#include "drawing/pick_source.h"

namespace vanzet::drawing {

/// Picks from a file instead of a window, used up in order; when none is left a pick is cancelled.
/// Source: docs/formats/picks.md
class Picks final : public PickSource {
 public:
  Picks() = default;

  /// Refused with file and line: what is no pick.
  static Result<Picks> Read(std::istream& text, const std::string& name);
  static Result<Picks> ReadFile(const std::string& file);

  Result<Pick> Next(const PickQuestion& asked) override;
  Fault At(const Pick& pick, std::string text) const override { return {std::move(text), name_, pick.line}; }

 private:
  std::string name_;
  std::deque<Pick> picks_;
};

}  // namespace vanzet::drawing
