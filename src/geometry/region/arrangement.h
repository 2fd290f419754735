#pragma once

#include <cstdint>
#include <vector>

#include "geometry/region/pieces.h"
#include "geometry/region/runs.h"

namespace geometry::region {

/// A half of an edge: the edge as it is passed in one direction, and the face on its left.
///
/// Halves 2e and 2e + 1 are those of edge e, the first from the vertex of the lower number.
using Half = std::uint32_t;
constexpr Half TwinOf(Half h) {
  return h ^ 1u;
}

/// Whether an edge on which nothing turns, since its pieces cancel each other, is kept.
enum class Cancelled { kDropped, kKept };

/// A run, between two vertices of the pieces.
struct RunEdge {
  std::uint32_t from, to;
};

/// The planar map of normalised pieces and of runs, with the winding numbers of its faces.
class Arrangement {
 public:
  /// `runEdges` are the edges of the runs, which are passed once. Their origins follow `firstRun`.
  Arrangement(const Pieces& pieces, Cancelled cancelled, const Runs& runs,
              const std::vector<RunEdge>& runEdges, std::uint32_t firstRun);

  /// Labels the faces. Returns false when the map is not planar, a face has two winding numbers, or a run
  /// meets more than what continues it.
  bool Label();

  Half HalfCount() const { return static_cast<Half>(next_.size()); }
  std::uint32_t From(Half h) const { return h % 2 == 0 ? edges_[h / 2].from : edges_[h / 2].to; }
  std::uint32_t To(Half h) const { return From(TwinOf(h)); }
  Curve CurveOf(Half h) const;
  /// The stroke whose part the edge is, and whether the half passes it forwards.
  std::uint32_t OriginOf(Half h) const { return edges_[h / 2].origin; }
  std::uint32_t RunOf(Half h) const { return OriginOf(h) - firstRun_; }
  bool IsRun(Half h) const { return OriginOf(h) >= firstRun_; }
  bool IsForward(Half h) const { return (h % 2 == 0) == edges_[h / 2].isForward; }
  /// The winding numbers on the left.
  const Turns& LeftOf(Half h) const { return faces_[faceOf_[h]].turns; }
  /// The next half out of the vertex where `h` starts, clockwise.
  Half Clockwise(Half h) const { return next_[TwinOf(h)]; }
  std::size_t VertexCount() const { return net_.Count(); }
  const Vector2d& At(std::uint32_t vertex) const { return net_[vertex]; }

 private:
  /// An edge, from the vertex of the lower number; `bulge` tells edges with the same ends apart.
  struct Edge {
    std::uint32_t from, to;
    double k;
    std::uint32_t origin;
    Turns turns;
    double bulge;
    bool isForward;
  };
  struct Face {
    Half first;  ///< one half of the face's boundary, from which `next_` leads round it
    double area;
    std::uint32_t part;
    Turns turns = {0, 0};
    bool isLabelled = false;
  };
  /// Edges that are connected.
  struct Part {
    std::uint32_t outer;  ///< its face of the most negative area
    std::uint32_t faces = 0, edges = 0, vertices = 0;
  };

  /// An edge by its ends, from and to in one number.
  struct Key {
    std::uint64_t ends;
    std::uint32_t edge;
  };
  /// A half out of a vertex, by its direction.
  struct Ray {
    double heading;
    Half half;
  };
  struct EdgeCurve {
    Curve curve;
    Half half;
  };
  std::vector<EdgeCurve> EdgeCurves() const;
  void AddRuns(const std::vector<RunEdge>& runEdges);
  double AreaOfRun(Half h) const;
  void MakeEdges(const Pieces& pieces, Cancelled cancelled);
  static std::vector<Key> OrderOf(const std::vector<Edge>& edges);
  void MergeEdges(const std::vector<Edge>& edges, const std::vector<Key>& order, Cancelled cancelled);
  void LinkAround();
  void SortAround(std::vector<Half>& out, std::vector<Ray>& rays) const;
  bool TurnsBefore(Half a, Half b) const;
  void TraceFaces();
  double AreaLeftOf(Half h) const;
  void FindParts();
  bool IsPlanar() const;
  std::vector<Turns> TurnsAround() const;
  bool LabelPart(std::uint32_t part, const Turns& around);
  Turns TurnsOf(Half h) const;

  const VertexNet& net_;
  double distance_;
  const Runs& runs_;
  std::uint32_t firstRun_;
  bool runsAreApart_ = true;
  std::vector<Edge> edges_;
  std::vector<Half> next_;  ///< the next half of the face on the left
  std::vector<std::uint32_t> faceOf_;
  std::vector<Face> faces_;
  std::vector<Part> parts_;
};

}  // namespace geometry::region
