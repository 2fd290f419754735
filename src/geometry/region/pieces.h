#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "geometry/region/curve.h"
#include "geometry/region/vertex_net.h"

namespace geometry::region {

/// How often a curve is passed forwards, less how often backwards, for each of two sets of curves.
using Turns = std::array<std::int32_t, 2>;

/// A curve of any length for the arrangement: a line, or an arc of less than a full turn.
struct Stroke {
  Vector2d from, to;
  Vector2d tangent;          ///< at `from`, of length 1
  double k = 0;              ///< the curvature, positive to the left
  double sweep = 0;          ///< the angle of an arc, never below 0
  std::uint32_t origin = 0;  ///< the caller's number of the curve, which the results carry
  Turns turns = {1, 0};
};

/// The signed distance of a point from the whole line or circle of a stroke, positive on the left.
double LeftOf(const Stroke& stroke, const Vector2d& p);

/// A part of a stroke between two vertices.
struct Piece {
  std::uint32_t from, to;
  double k;
  std::uint32_t origin;
  Turns turns;
  bool isNew = true;
};

/// How the pieces are after the cutting: they meet in vertices only; the cuts bred others, which may end
/// with a larger distance; or there were more cuts than memory is for, which a larger distance does not
/// change.
enum class Normalised { kDone, kUnsettled, kTooMany };

/// Strokes, cut into pieces that meet in vertices only.
///
/// Invariant after `Normalise`: no two vertices are within the distance of each other, no piece passes a
///           vertex within the distance without ending there, and two pieces either have the same ends and
///           follow each other within the distance, or have no point in common but a common end
class Pieces {
 public:
  explicit Pieces(double distance) : distance_(distance), net_(distance) {}

  void Add(const Stroke& stroke);
  std::uint32_t AddVertex(const Vector2d& p) { return net_.Add(p); }
  /// Cuts the pieces. Unless that is done, they are of no use. `others` is the number of curves that belong
  /// to the same drawing and are not among the pieces: large drawings may have more cuts.
  Normalised Normalise(std::size_t others = 0);
  /// Frees what only `Normalise` needs.
  void Finish();

  double Distance() const { return distance_; }
  const VertexNet& Net() const { return net_; }
  const std::vector<Piece>& List() const { return pieces_; }
  Curve CurveOf(const Piece& piece) const { return {net_[piece.from], net_[piece.to], piece.k}; }

 private:
  struct Cut {
    std::uint32_t piece, vertex;
    double along;
  };
  std::uint32_t Append(std::uint32_t from, std::uint32_t to, const Stroke& stroke);
  bool FindCuts();
  void Compare(std::uint32_t i, std::uint32_t j);
  bool AreClear(std::uint32_t i, std::uint32_t j) const;
  void CutAtEnds(std::uint32_t i, const Piece& other);
  void CutAt(std::uint32_t i, std::uint32_t vertex);
  bool HasTooManyCuts() const { return cuts_.size() > mostCuts_; }
  void ApplyCuts();

  double distance_;
  VertexNet net_;
  std::size_t mostCuts_ = 0;
  std::vector<Piece> pieces_;
  std::vector<PreparedCurve> prepared_;
  std::vector<Cut> cuts_;
};

}  // namespace geometry::region
