#pragma once

#include <deque>
#include <istream>
#include <string>

#include "base/result.h"
#include "geometry/point.h"

namespace vanzet::drawing {

/// What a user picks with the mouse.
struct Pick {
  enum class Kind { kCancel, kPosition, kFigure, kObject };
  Kind kind = Kind::kCancel;
  geometry::Point position = {};  ///< of a position
  std::string name = {};          ///< of a figure or an object
  int line = 0;                   ///< of the file that it stands in; 0: none
};

/// What is asked for; never `kCancel`.
struct PickQuestion {
  Pick::Kind kind = Pick::Kind::kPosition;
  std::string prompt = {};  ///< empty: the one who asks tells nothing
};

/// Whoever answers picks: a file, or a person in front of a window.
class PickSource {
 public:
  virtual ~PickSource() = default;

  /// Returns when it is answered: a pick of the kind that is asked for, or a cancelling. A fault when there
  /// is an answer of another kind; it is used up.
  virtual Result<Pick> Next(const PickQuestion& asked) = 0;

  /// A fault at a pick that cannot be done.
  virtual Fault At(const Pick& pick, std::string text) const = 0;
};

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
