#pragma once

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/result.h"
#include "drawing/drawing.h"
#include "geometry/kurve.h"

namespace vanzet::drawing {

/// Numbers for names, given in the order of asking and good for the whole run: a name that goes and comes
/// again has its number back.
class NameNumbers {
 public:
  explicit NameNumbers(std::int32_t first) : first_(first) {}

  std::int32_t NumberOf(const std::string& name) {
    const auto place = std::ranges::find(names_, name) - names_.begin();
    if (place == std::ssize(names_)) names_.push_back(name);
    return first_ + static_cast<std::int32_t>(place);
  }

  std::optional<std::string> NameOf(std::int32_t number) const {
    const auto place = static_cast<std::int64_t>(number) - first_;
    if (place < 0 || place >= std::ssize(names_)) return std::nullopt;
    return names_[static_cast<std::size_t>(place)];
  }

 private:
  std::int32_t first_;
  std::vector<std::string> names_;
};

/// What is drawn with and goes with the run, by number: lines, points, circles and transforms.
struct Workpieces {
  std::map<int, geometry::CLine> lines;
  std::map<int, geometry::Point> points;
  std::map<int, geometry::Circle> circles;
  std::map<int, geometry::Matrix> transforms;
};

/// The drawing board of one run: the project's drawing, the window and the layer that are current, and the
/// workpieces.
///
/// Units    millimetres; making a board sets the geometry library to them for the process
/// Order    `Load` before all else; it reads the file at its first call
/// Keeping  `Save` brings what was changed here into the file, which other processes may have changed
///          meanwhile: nothing of theirs is lost, and where both changed the same part ours stays
/// Errors   a fault, and everything is as it was
class Board {
 public:
  /// A board whose drawing goes with it.
  Board();
  /// The board of a project: drawing.txt in its folder.
  explicit Board(std::filesystem::path folder);

  Result<void> Load();
  Result<void> Save();

  const Drawing& drawing() const { return drawing_; }

  Window window = Window::kDisplay;
  Workpieces workpieces;

  /// While true `Save` leaves the file alone, and all that was changed can still be given up.
  bool isHeld = false;

  /// The current layer.
  const std::string& layer() const { return layer_; }
  /// Makes the layer current, and makes it when there is none. Refused: what is no name.
  Result<void> SelectLayer(const std::string& name);
  /// What is made in the current layer is drawn with.
  const Pen& pen() const;
  /// Makes the layer current with that pen, until `EndLayer` makes the one current again that was it before.
  Result<void> BeginLayer(const std::string& name, const Pen& pen);
  void EndLayer();
  /// Removes a layer with all that lies in it; silent when there is none, refused for the first one. When it
  /// was current the first one becomes it.
  Result<void> DeleteLayer(const std::string& name);
  /// Numbers of layers are good for the run.
  std::int32_t LayerNumber(const std::string& name) { return layerNumbers_.NumberOf(name); }
  std::optional<std::string> LayerName(std::int32_t number) const { return layerNumbers_.NameOf(number); }

  /// A line of the workpieces, else a line drawn in the current layer, else in another one; null when there
  /// is none. Valid until the next change.
  const geometry::CLine* FindLine(int number) const;
  /// Draws in the display window, elsewhere makes a workpiece.
  Result<void> PutLine(int number, const geometry::CLine& line);
  /// All that `FindLine` would find under the numbers; in other layers only when it is the one number.
  void DeleteLines(int first, int last);

  /// The contour of that number, untransformed and never reversed, or null. Valid until the next change.
  const geometry::Kurve* FindContour(int number) const;
  /// Refused when the drawing would have too many vertices.
  Result<void> PutContour(int number, geometry::Kurve curve);
  /// The same in the layer, pen and window that the contour has. Requires: there is one.
  Result<void> ReplaceContour(int number, geometry::Kurve curve);
  void DeleteContours(int first, int last);

  /// Refused when there is one of that name, or it is no name.
  Result<void> CreateFigure(const std::string& name);
  /// Requires of these: there is such a figure, and such a contour.
  Result<void> Append(const std::string& figure, int contour);
  Result<void> Insert(const std::string& figure, const Placement& placement);
  /// Adds a contour in the current layer.
  Result<void> Append(const std::string& figure, geometry::Kurve curve);
  /// With its insertions; silent when there is none.
  void DeleteFigure(const std::string& name);

  /// Numbers that picks give for objects, from 1.
  NameNumbers objects{1};

 private:
  Result<Drawing> ReadFile() const;
  Result<void> CheckRoom(const geometry::Kurve& curve) const;
  Result<void> Append(const std::string& figure, Stroke stroke);
  std::filesystem::path File() const { return folder_ / "drawing.txt"; }
  const LineKey* FindDrawn(int number) const;

  std::filesystem::path folder_;  ///< empty: nothing is kept
  bool isLoaded_;
  Drawing drawing_;
  Changes changes_;
  std::string layer_ = kFirstLayer;
  std::optional<std::string> formerLayer_;  ///< before `BeginLayer`
  NameNumbers layerNumbers_{0};
};

}  // namespace vanzet::drawing
