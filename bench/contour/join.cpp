#include "contour/join.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <optional>
#include <utility>

namespace vanzet::contour {
namespace {

using geometry::Point;

/// One end of a piece that is not used yet.
struct FreeEnd {
  std::size_t piece;
  bool isStart;
};

/// The free ends by where they are, so that joining is quick in large drawings.
class FreeEnds {
 public:
  explicit FreeEnds(double tolerance) : tolerance_(tolerance), width_(std::max(tolerance, 1e-3)) {}

  void Add(const FreeEnd& end, const Point& point) {
    cells_[CellOf(point)].emplace(std::pair(end.piece, end.isStart), point);
  }

  void Remove(const FreeEnd& end, const Point& point) {
    cells_[CellOf(point)].erase({end.piece, end.isStart});
  }

  /// The nearest within the tolerance; of equal ones that of the first piece.
  std::optional<FreeEnd> Nearest(const Point& point) const {
    Found found{point, {}, tolerance_};
    const Cell centre = CellOf(point);
    Look(centre, found);
    if (found.end && found.distance == 0) return found.end;
    for (std::int64_t x = centre.first - 1; x <= centre.first + 1; ++x) {
      for (std::int64_t y = centre.second - 1; y <= centre.second + 1; ++y) {
        if (Cell{x, y} != centre) Look({x, y}, found);
      }
    }
    return found.end;
  }

 private:
  using Cell = std::pair<std::int64_t, std::int64_t>;
  struct Found {
    Point wanted;
    std::optional<FreeEnd> end;
    double distance;
  };

  Cell CellOf(const Point& point) const {
    return {static_cast<std::int64_t>(std::floor(point.x / width_)),
            static_cast<std::int64_t>(std::floor(point.y / width_))};
  }

  void Look(const Cell& cell, Found& found) const {
    const auto ends = cells_.find(cell);
    if (ends == cells_.end()) return;
    for (const auto& [end, point] : ends->second) {
      const double distance = Dist(point, found.wanted);
      const bool isEqual = distance == found.distance;
      if (distance > found.distance || (isEqual && found.end && found.end->piece <= end.first)) continue;
      found = {found.wanted, FreeEnd{end.first, end.second}, distance};
      if (distance == 0) return;
    }
  }

  double tolerance_;
  double width_;
  std::map<Cell, std::map<std::pair<std::size_t, bool>, Point>> cells_;
};

class Joiner {
 public:
  Joiner(std::vector<Piece> pieces, double tolerance)
      : pieces_(std::move(pieces)), used_(pieces_.size()), tolerance_(tolerance), ends_(tolerance) {
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
      ends_.Add({i, true}, pieces_[i].start);
      ends_.Add({i, false}, pieces_[i].End());
    }
  }

  std::vector<Piece> Join() {
    std::vector<Piece> joined;
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
      if (!used_[i]) joined.push_back(GrownFrom(i));
    }
    return joined;
  }

 private:
  Piece GrownFrom(std::size_t i) {
    Piece grown = Use(i);
    GrowAtEnd(grown);
    if (!Closes(grown)) {
      grown.Reverse();
      GrowAtEnd(grown);
      grown.Reverse();
    }
    if (Closes(grown)) grown.segments.back().end = grown.start;
    return grown;
  }

  Piece Use(std::size_t i) {
    used_[i] = true;
    ends_.Remove({i, true}, pieces_[i].start);
    ends_.Remove({i, false}, pieces_[i].End());
    return std::move(pieces_[i]);
  }

  void GrowAtEnd(Piece& grown) {
    while (!Closes(grown)) {
      const auto nearest = ends_.Nearest(grown.End());
      if (!nearest) return;
      Piece next = Use(nearest->piece);
      if (!nearest->isStart) next.Reverse();
      grown.segments.insert(grown.segments.end(), next.segments.begin(), next.segments.end());
    }
  }

  /// A single segment that is shorter than the tolerance is no closed contour.
  bool Closes(const Piece& piece) const {
    return piece.segments.size() > 1 && Dist(piece.start, piece.End()) <= tolerance_;
  }

  std::vector<Piece> pieces_;
  std::vector<bool> used_;
  double tolerance_;
  FreeEnds ends_;
};

}  // namespace

std::vector<Piece> Joined(std::vector<Piece> pieces, double tolerance) {
  return Joiner(std::move(pieces), tolerance).Join();
}

}  // namespace vanzet::contour
