#include "contour/piece.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <optional>
#include <utility>

#include "contour/builder.h"

namespace vanzet::contour {
namespace {

using geometry::Point;

/// An arc that rises less than this over its chord, in millimetres, is a line, unless it is tiny itself and
/// its bulge is not below the other limit.
constexpr double kFlat = 1e-6;
constexpr double kShallow = 0.01;

/// The centre of an arc of less than 0.18 degrees can be too far away for a contour; it is a line then.
constexpr double kLeastBulge = 7.9e-4;

/// With the angle 4 atan(b) over the chord c, the centre is c (1 - b^2) / 4b to the left of the chord's
/// middle.
Point CentreOf(const Point& start, const Segment& segment) {
  const geometry::Vector2d chord(start, segment.end);
  const double b = segment.bulge;
  const Point middle((start.x + segment.end.x) / 2, (start.y + segment.end.y) / 2);
  return middle + chord.LeftNormal() * ((1 - b * b) / (4 * b));
}

Result<void> AddTo(Builder& builder, const Point& start, const Segment& segment) {
  const double rise = std::fabs(segment.bulge) * Dist(start, segment.end) / 2;
  const bool isFlat = rise < kFlat && std::fabs(segment.bulge) < kShallow;
  if (rise == 0 || isFlat) return builder.LineTo(segment.end);
  const Point centre = CentreOf(start, segment);
  if (std::fabs(segment.bulge) < kLeastBulge && !CheckPoint(centre)) return builder.LineTo(segment.end);
  return builder.ArcTo(segment.bulge > 0 ? geometry::ACW : geometry::CW, segment.end, centre);
}

using geometry::Point;

/// An end of a piece that is not used yet.
struct FreeEnd {
  std::size_t piece;
  bool isStart;
};

/// The free ends by their places, so that joining is fast in large drawings.
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

  /// A single segment that is shorter than the tolerance is not a closed contour.
  bool Closes(const Piece& piece) const {
    return piece.segments.size() > 1 && Dist(piece.start, piece.End()) <= tolerance_;
  }

  std::vector<Piece> pieces_;
  std::vector<bool> used_;
  double tolerance_;
  FreeEnds ends_;
};

}  // namespace

void Piece::Reverse() {
  Piece back{End(), {}, line};
  back.segments.reserve(segments.size());
  for (std::size_t i = segments.size(); i-- > 0;) {
    back.segments.push_back({i == 0 ? start : segments[i - 1].end, -segments[i].bulge});
  }
  *this = std::move(back);
}

void Piece::Scale(double factor) {
  start *= factor;
  for (Segment& segment : segments) segment.end *= factor;
}

Result<void> CheckPiece(const Piece& piece) {
  VANZET_DO(CheckPoint(piece.start));
  for (const Segment& segment : piece.segments) {
    VANZET_DO(CheckPoint(segment.end));
  }
  return {};
}

Result<Contour> ContourOf(int number, const Piece& piece) {
  Builder builder;
  VANZET_DO(builder.Start(piece.start));
  Point at = piece.start;
  for (const Segment& segment : piece.segments) {
    VANZET_DO(AddTo(builder, at, segment));
    at = segment.end;
  }
  return builder.Take(number);
}

std::vector<Piece> Join(std::vector<Piece> pieces, double tolerance) {
  return Joiner(std::move(pieces), tolerance).Join();
}

}  // namespace vanzet::contour
