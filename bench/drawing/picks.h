#pragma once

#include <deque>
#include <istream>
#include <optional>
#include <string>

#include "base/result.h"
#include "geometry/point.h"

namespace vanzet::drawing {

/// What a user would pick with the mouse.
struct Pick {
  enum class Kind { kCancel, kPosition, kFigure, kObject };
  Kind kind = Kind::kCancel;
  geometry::Point position = {};  ///< of a position
  std::string name = {};          ///< of a figure or an object
  int line = 0;                   ///< of the file
};

/// Picks from a file instead of a window, used up in order; when none is left a pick is cancelled.
/// Source: docs/formats/picks.md
class Picks {
 public:
  Picks() = default;

  /// Refused with file and line: what is no pick.
  static Result<Picks> Read(std::istream& text, const std::string& name);
  static Result<Picks> ReadFile(const std::string& file);

  /// Uses up the next one. A fault when it is of another kind than what is asked for, and no cancelling.
  Result<Pick> Next(Pick::Kind asked);

  /// A fault at a pick that cannot be done.
  Fault At(const Pick& pick, std::string text) const { return {std::move(text), name_, pick.line}; }

 private:
  std::string name_;
  std::deque<Pick> picks_;
};

}  // namespace vanzet::drawing
