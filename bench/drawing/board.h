#pragma once

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/result.h"
#include "drawing/drawing.h"
#include "geometry/kurve.h"

namespace vanzet::drawing {

/// Numbers for names, in the order in which they are asked for and valid for the whole run: a name that is
/// deleted and made again gets its old number.
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

/// The elements of construction that last for one run, by number: lines, points, circles and transforms.
struct Workpieces {
  std::map<int, geometry::CLine> lines;
  std::map<int, geometry::Point> points;
  std::map<int, geometry::Circle> circles;
  std::map<int, geometry::Matrix> transforms;
};

/// The drawing board of one run: the drawing of the project, the current window and layer, and the
/// workpieces.
///
/// Units    millimetres; making a board sets the geometry library to them for the process
/// Order    call `Load` first; only the first call reads the file
/// Saving   `Unsaved` merges the changes of this board into the content of the file, which other processes
///          may have changed: their changes stay, except where both changed the same part. The caller,
///          who writes the file, reports it by `MarkSaved`
/// Errors   a fault; the board is unchanged
class Board {
 public:
  static constexpr const char* kFile = "drawing.txt";  ///< in the project's folder

  /// A board whose drawing is never saved.
  Board();
  /// The board of a project: drawing.txt in its folder.
  explicit Board(std::filesystem::path folder);

  Result<void> Load();

  /// Begins a new drawing in the place of a file that is damaged or empty, and returns what is wrong with it;
  /// nothing when the file can be read. The file is replaced when the board is saved.
  Result<std::optional<Fault>> LoadOrBegin();

  bool HasChanges() const { return !folder_.empty() && !changes_.IsEmpty(); }

  /// The content that the file has to get; nothing without a change. Requires: no other process changes the
  /// file until it is written.
  Result<std::optional<std::string>> Unsaved();

  /// The content that `Unsaved` returned last is in the file.
  void MarkSaved();

  const Drawing& drawing() const { return drawing_; }

  Window window = Window::kDisplay;
  bool isTurning = false;  ///< lines are about turning from now on
  Workpieces workpieces;

  /// The current layer.
  const std::string& layer() const { return layer_; }
  /// Makes the layer current and creates it if it does not exist. Fails for an invalid name.
  Result<void> SelectLayer(const std::string& name);
  /// The pen of the current layer.
  const Pen& pen() const;
  /// Makes the layer current with that pen; `EndLayer` returns to the layer that was current before.
  Result<void> BeginLayer(const std::string& name, const Pen& pen);
  void EndLayer();
  /// Deletes a layer with its contents; does nothing if it does not exist. Fails for the first layer, which
  /// becomes current if the deleted one was.
  Result<void> DeleteLayer(const std::string& name);
  /// The numbers of layers are valid for the run.
  std::int32_t LayerNumber(const std::string& name) { return layerNumbers_.NumberOf(name); }
  std::optional<std::string> LayerName(std::int32_t number) const { return layerNumbers_.NameOf(number); }

  /// A line of the workpieces, else a line drawn in the current layer, else in another one, else null. Valid
  /// until the next change.
  const geometry::CLine* FindLine(int number) const;
  /// Draws the line in the display window; in the construction window makes a workpiece.
  Result<void> PutLine(int number, const geometry::CLine& line);
  /// Deletes the lines that `FindLine` would find under the numbers; in other layers only for a single
  /// number.
  void DeleteLines(int first, int last);

  /// The contour of that number, untransformed and never reversed, or null. Valid until the next change.
  const geometry::Kurve* FindContour(int number) const;
  /// Fails when the drawing would have too many vertices.
  Result<void> PutContour(int number, geometry::Kurve curve);
  /// Replaces the curve of a contour, whose layer, pen and window stay. Requires: the contour exists.
  Result<void> ReplaceContour(int number, geometry::Kurve curve);
  void DeleteContours(int first, int last);

  /// Fails when the figure exists or the name is invalid.
  Result<void> CreateFigure(const std::string& name);
  /// The heights of contours that are appended to the figure from now on in this run are diameters.
  void TakeDiameters(const std::string& figure) { diameterFigures_.insert(figure); }
  /// Requires for these: the figure exists, and so does the contour. Fails for a contour with an arc whose
  /// half height is not an arc.
  Result<void> Append(const std::string& figure, int contour);
  Result<void> Insert(const std::string& figure, const Placement& placement);
  /// Adds a contour in the current layer.
  Result<void> Append(const std::string& figure, geometry::Kurve curve);
  /// Deletes a figure with its insertions; does nothing if it does not exist.
  void DeleteFigure(const std::string& name);

  /// Numbers that picks give for objects, from 1.
  NameNumbers objects{1};

 private:
  Result<Drawing> ReadFile() const;
  Result<void> CheckRoom(const geometry::Kurve& curve) const;
  Result<void> Append(const std::string& figure, Stroke stroke);
  std::filesystem::path File() const { return folder_ / kFile; }
  const LineKey* FindDrawn(int number) const;

  std::filesystem::path folder_;  ///< empty: nothing is saved
  bool isLoaded_;
  bool isReplaced_ = false;  ///< the file is not read: its content is given up
  Drawing drawing_;
  std::optional<Drawing> unsaved_;  ///< the drawing that `Unsaved` returned last
  Changes changes_;
  std::string layer_ = kFirstLayer;
  std::optional<std::string> formerLayer_;  ///< before `BeginLayer`
  std::set<std::string> diameterFigures_;
  NameNumbers layerNumbers_{0};
};

}  // namespace vanzet::drawing
