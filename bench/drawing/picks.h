#pragma once

#include <deque>
#include <istream>
#include <string>

#include "base/result.h"
#include "geometry/point.h"

namespace vanzet::drawing {

/// The answer of a user who picks with the mouse.
struct Pick {
  enum class Kind { kCancel, kPosition, kFigure, kObject };
  Kind kind = Kind::kCancel;
  geometry::Point position = {};  ///< of a position
  std::string name = {};          ///< of a figure or an object
  int line = 0;                   ///< of the file of picks; 0: none
  std::string source = {};        ///< that line of the file
};

/// The question for a pick; its kind is never `kCancel`.
struct PickQuestion {
  Pick::Kind kind = Pick::Kind::kPosition;
  std::string prompt = {};  ///< empty: no prompt
};

/// The source of picks: a file, or a person at a window.
class PickSource {
 public:
  virtual ~PickSource() = default;

  /// Waits for the answer and returns it: a pick of the kind that is asked for, or one that cancels. Fails
  /// for an answer of another kind, which is used up.
  virtual Result<Pick> Next(const PickQuestion& asked) = 0;

  /// A fault at the place of a pick.
  virtual Fault At(const Pick& pick, std::string text) const = 0;
};

/// Picks from a file, used up in order; after the last one, picks are cancelled.
///
/// Source   docs/formats/picks.md
class Picks final : public PickSource {
 public:
  Picks() = default;

  /// Fails with file and line for a line that is not a pick.
  static Result<Picks> Read(std::istream& text, const std::string& name);
  static Result<Picks> ReadFile(const std::string& file);

  Result<Pick> Next(const PickQuestion& asked) override;
  Fault At(const Pick& pick, std::string text) const override {
    return {.text = std::move(text), .file = name_, .line = pick.line, .source = pick.source};
  }

 private:
  std::string name_;
  std::deque<Pick> picks_;
};

}  // namespace vanzet::drawing
