#include <cmath>
#include <utility>

#include "contour/dxf/item.h"
#include "geometry/numerics.h"

/// The boundaries of hatches, whose groups have their meaning by their order.
namespace vanzet::contour {
namespace {

using geometry::PI;

constexpr int kPathCount = 91, kPathFlags = 92, kCount = 93, kEdge = 72, kIsPolyline = 2;
constexpr int kLine = 1, kArc = 2, kEllipse = 3, kSpline = 4;

/// Reads the groups one after the other. The first one that is not there ends the reading.
class HatchReader {
 public:
  explicit HatchReader(const DxfEntity& entity) : groups_(entity.groups), height_(entity.Real(30)) {}

  /// The paths; fewer than the hatch has when `isWhole` is false afterwards.
  std::vector<Path> Read() {
    while (at_ < groups_.size() && groups_[at_].code != kPathCount) ++at_;
    const int count = TakeCount(kPathCount);
    for (int i = 0; i < count && isWhole; ++i) ReadBoundary();
    return std::move(paths_);
  }

  bool isWhole = true;

 private:
  bool IsNext(int code) const { return at_ < groups_.size() && groups_[at_].code == code; }

  double Take(int code) {
    isWhole = isWhole && IsNext(code);
    return isWhole ? groups_[at_++].number : 0;
  }
  double TakeIf(int code, double otherwise) { return IsNext(code) ? Take(code) : otherwise; }
  int TakeCount(int code) { return static_cast<int>(Take(code)); }
  Space TakePoint(int code) {
    const double x = Take(code);
    return {x, Take(code + 10), height_};
  }
  Space TakeVector(int code) { return TakePoint(code) - Space{0, 0, height_}; }

  void ReadBoundary() {
    const int flags = TakeCount(kPathFlags);
    if ((flags & kIsPolyline) != 0) {
      ReadPolyline();
    } else {
      const int edges = TakeCount(kCount);
      for (int i = 0; i < edges && isWhole; ++i) ReadEdge();
    }
    TakeIf(97, 0);  // the number of source objects, whose names are not among the groups
  }

  void ReadPolyline() {
    Take(kEdge);  // whether there are bulges
    const bool isClosed = TakeIf(73, 1) != 0;
    const int count = TakeCount(kCount);
    std::vector<Vertex> vertices;
    for (int i = 0; i < count && isWhole; ++i) {
      const Space point = TakePoint(10);
      vertices.push_back({point, TakeIf(42, 0)});
    }
    if (isWhole) paths_.push_back(PathAlong(vertices, isClosed));
  }

  void ReadEdge() {
    switch (TakeCount(kEdge)) {
      case kLine: return ReadLine();
      case kArc: return ReadArc();
      case kEllipse: return ReadEllipse();
      case kSpline: return ReadSpline();
      default: isWhole = false;
    }
  }

  void ReadLine() {
    const Space start = TakePoint(10), end = TakePoint(11);
    paths_.push_back({start, {Stroke{end}}});
  }

  void ReadArc() {
    const Space centre = TakePoint(10);
    const double radius = Take(40);
    ReadAngles({centre, {radius, 0, 0}, {0, radius, 0}});
  }

  void ReadEllipse() {
    const Space centre = TakePoint(10), major = TakeVector(11);
    const double ratio = Take(40);
    ReadAngles({centre, major, CrossOf({0, 0, 1}, major) * ratio});
  }

  /// The angles of a clockwise arc are counted clockwise.
  void ReadAngles(Turn turn) {
    const double from = Take(50) * PI / 180, to = Take(51) * PI / 180;
    if (Take(73) == 0) turn.v = turn.v * -1;
    turn.from = from;
    if (LengthOf(turn.u) > 0 && LengthOf(turn.v) > 0) paths_.push_back(PathOfTurn(turn, to));
  }

  void ReadSpline() {
    Spline spline{TakeCount(94), {}, {}};
    const bool isRational = Take(73) != 0;
    Take(74);
    const int knots = TakeCount(95), poles = TakeCount(96);
    for (int i = 0; i < knots && isWhole; ++i) spline.knots.push_back(Take(40));
    for (int i = 0; i < poles && isWhole; ++i) {
      const Space point = TakePoint(10);
      spline.poles.push_back({point, isRational || IsNext(42) ? TakeIf(42, 1) : 1});
    }
    SkipFitPoints();
    isWhole = isWhole && FaultOf(spline).empty();
    if (!isWhole) return;
    for (Path& path : PathsAlong(BeziersOf(spline))) paths_.push_back(std::move(path));
  }

  /// Drawings of 2010 and later have the points, too, through which the spline was drawn.
  void SkipFitPoints() {
    if (!IsNext(97) || at_ + 1 >= groups_.size()) return;
    const int next = groups_[at_ + 1].code;
    const bool isSources = next == kPathFlags || next == 98 || next == 75;
    const bool hasPoints = next == 11 || next == 12 || next == 13 || next == kEdge || next == 97;
    if (isSources || !hasPoints) return;
    Take(97);
    while (IsNext(11) || IsNext(21) || IsNext(12) || IsNext(22) || IsNext(13) || IsNext(23)) ++at_;
  }

  const std::vector<DxfGroup>& groups_;
  double height_;
  std::size_t at_ = 0;
  std::vector<Path> paths_;
};

}  // namespace

std::vector<Path> PathsOfHatch(const DxfEntity& entity, std::string& leftOut) {
  HatchReader reader(entity);
  std::vector<Path> paths = reader.Read();
  std::erase_if(paths, [](const Path& path) { return path.edges.empty(); });
  if (reader.isWhole && !paths.empty()) return paths;
  leftOut = reader.isWhole ? "HATCH without a boundary" : "HATCH whose boundary is not known";
  return {};
}

}  // namespace vanzet::contour
