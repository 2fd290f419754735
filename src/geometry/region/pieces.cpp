#include "geometry/region/pieces.h"

#include <algorithm>
#include <cmath>

#include "geometry/region/box_tree.h"
#include "geometry/region/large_vector.h"

namespace geometry::region {
namespace {

constexpr int kMostRounds = 48;
/// After so many rounds there are few places left to cut. Where there are more cuts than pieces in the
/// beginning, and more than a few, they breed.
constexpr int kFreeRounds = 4;
constexpr std::size_t kFewCuts = 200;
/// More cuts than this, and than several for each piece, take more memory than a machine has.
constexpr std::size_t kMostCuts = 4'000'000;
constexpr std::size_t kMostCutsPerPiece = 16;
/// Arcs of a radius below so many distances are as good as their chords.
constexpr double kSmallestRadius = 16;
/// Lines that are farther apart than this, in distances, are not cut by each other.
constexpr double kClear = 2;
constexpr double kQuarter = 1.5707963267948966;

Vector2d Turned(const Vector2d& v, double angle) {
  const double sine = std::sin(angle), cosine = std::cos(angle);
  return {v.dx * cosine - v.dy * sine, v.dy * cosine + v.dx * sine};
}

/// The point of an arc after an angle, by its chord, so that it is exact for huge radii too.
Vector2d PointOf(const Stroke& arc, double angle) {
  const double signedHalf = std::copysign(angle / 2, arc.k);
  return arc.from + Turned(arc.tangent, signedHalf) * (2 * std::sin(angle / 2) / std::abs(arc.k));
}

/// The angle from the start of an arc to where its tangent is first parallel to an axis.
double FirstAxisAngle(const Stroke& arc) {
  const double heading = std::atan2(arc.tangent.dy, arc.tangent.dx);
  const double part = heading / kQuarter - std::floor(heading / kQuarter);
  return (arc.k > 0 ? 1 - part : part) * kQuarter;
}

/// Whether the ends of the second line are clearly on one side of the first one.
bool AreOnOneSide(const Curve& line, const Curve& other, double distance) {
  const Vector2d along = line.b - line.a;
  const double first = Cross(along, other.a - line.a), second = Cross(along, other.b - line.a);
  const double least = std::min(std::abs(first), std::abs(second)), reach = kClear * distance;
  return first * second > 0 && least * least > reach * reach * Dot(along, along);
}

}  // namespace

double LeftOf(const Stroke& stroke, const Vector2d& p) {
  const Vector2d w = p - stroke.from;
  const double residual = stroke.k * Dot(w, w) - 2 * Cross(stroke.tangent, w);
  return -residual / (1 + std::sqrt(std::max(0.0, 1 + stroke.k * residual)));
}

std::uint32_t Pieces::Append(std::uint32_t from, std::uint32_t to, const Stroke& stroke) {
  const bool isTiny = std::abs(stroke.k) * kSmallestRadius * distance_ > 1;
  if (to != from) pieces_.push_back({from, to, isTiny ? 0 : stroke.k, stroke.origin, stroke.turns});
  return to;
}

// The ends come first, so that their coordinates stay as they are.
void Pieces::Add(const Stroke& stroke) {
  std::uint32_t from = net_.Add(stroke.from);
  const std::uint32_t end = net_.Add(stroke.to);
  if (stroke.k != 0) {
    for (double angle = FirstAxisAngle(stroke); angle < stroke.sweep; angle += kQuarter) {
      from = Append(from, net_.Add(PointOf(stroke, angle)), stroke);
    }
  }
  Append(from, end, stroke);
}

void Pieces::CutAt(std::uint32_t i, std::uint32_t vertex) {
  const Piece& piece = pieces_[i];
  if (vertex == piece.from || vertex == piece.to) return;
  const Curve& shape = prepared_[i].Shape();
  cuts_.push_back({i, vertex, Dot(shape.b - shape.a, net_[vertex] - shape.a)});
}

void Pieces::CutAtEnds(std::uint32_t i, const Piece& other) {
  for (const std::uint32_t end : {other.from, other.to}) {
    if (end != pieces_[i].from && end != pieces_[i].to && prepared_[i].Passes(net_[end])) CutAt(i, end);
  }
}

/// Whether two pieces are lines that leave nothing to cut: apart, or with an angle at a common end.
bool Pieces::AreClear(std::uint32_t i, std::uint32_t j) const {
  const Piece &a = pieces_[i], &b = pieces_[j];
  if (a.k != 0 || b.k != 0) return false;
  const Curve &first = prepared_[i].Shape(), &second = prepared_[j].Shape();
  if (a.from != b.from && a.from != b.to && a.to != b.from && a.to != b.to) {
    return AreOnOneSide(first, second, distance_) || AreOnOneSide(second, first, distance_);
  }
  const Vector2d u = first.b - first.a, v = second.b - second.a;
  const double cross = Cross(u, v), reach = kClear * distance_;
  return cross * cross > reach * reach * std::max(Dot(u, u), Dot(v, v));
}

void Pieces::Compare(std::uint32_t i, std::uint32_t j) {
  if (AreClear(i, j)) return;
  const Piece &a = pieces_[i], &b = pieces_[j];
  CutAtEnds(i, b);
  CutAtEnds(j, a);
  const auto isEndOfB = [&](std::uint32_t vertex) { return vertex == b.from || vertex == b.to; };
  Vector2d found[2];
  const int count = prepared_[i].Meet(prepared_[j], {isEndOfB(a.from), isEndOfB(a.to)}, found);
  for (int n = 0; n < count; ++n) {
    const std::uint32_t vertex = net_.Add(found[n]);
    CutAt(i, vertex);
    CutAt(j, vertex);
  }
}

bool Pieces::FindCuts() {
  prepared_.clear();
  ReserveLarge(prepared_, pieces_.size());
  std::vector<BoxTree::Item> boxes;
  ReserveLarge(boxes, pieces_.size());
  for (const Piece& piece : pieces_) {
    prepared_.emplace_back(CurveOf(piece), distance_);
    const Box& box = prepared_.back().Bounds();
    boxes.push_back({box.min.x, box.min.y, box.max.x, box.max.y, piece.isNew});
  }
  cuts_.clear();
  BoxTree(std::move(boxes)).VisitPairs([&](std::uint32_t i, std::uint32_t j) {
    Compare(i, j);
    return !HasTooManyCuts();
  });
  return !cuts_.empty();
}

void Pieces::ApplyCuts() {
  std::sort(cuts_.begin(), cuts_.end(), [](const Cut& a, const Cut& b) {
    return a.piece != b.piece   ? a.piece < b.piece
           : a.along != b.along ? a.along < b.along
                                : a.vertex < b.vertex;
  });
  std::vector<Piece> pieces;
  ReserveLarge(pieces, pieces_.size() + cuts_.size());
  auto cut = cuts_.begin();
  for (std::uint32_t i = 0; i < pieces_.size(); ++i) {
    Piece piece = pieces_[i];
    piece.isNew = cut != cuts_.end() && cut->piece == i;
    const std::uint32_t end = piece.to;
    for (; cut != cuts_.end() && cut->piece == i; ++cut) {
      if (cut->vertex == piece.from) continue;
      piece.to = cut->vertex;
      pieces.push_back(piece);
      piece.from = cut->vertex;
    }
    piece.to = end;
    if (piece.from != end) pieces.push_back(piece);
  }
  pieces_ = std::move(pieces);
}

void Pieces::Finish() {
  prepared_ = {};
  cuts_ = {};
}

Normalised Pieces::Normalise(std::size_t others) {
  const std::size_t first = pieces_.size();
  for (int round = 0; round < kMostRounds; ++round) {
    mostCuts_ = std::max(kMostCuts, kMostCutsPerPiece * (pieces_.size() + others));
    if (!FindCuts()) return Normalised::kDone;
    if (HasTooManyCuts()) return Normalised::kTooMany;
    if (round > kFreeRounds && cuts_.size() > first + kFewCuts) return Normalised::kUnsettled;
    ApplyCuts();
  }
  return Normalised::kUnsettled;
}

}  // namespace geometry::region
