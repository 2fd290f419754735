#include "geometry/region/arrangement.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace geometry::region {
namespace {

constexpr double kTurn = 6.283185307179586;
/// Headings that are nearer than this are compared at the end of the shorter curve instead.
constexpr double kNearlyTangent = 1e-4;

void Add(Turns& sum, const Turns& turns, int factor = 1) {
  for (std::size_t i = 0; i < sum.size(); ++i) sum[i] += factor * turns[i];
}

}  // namespace

Arrangement::Arrangement(const Pieces& pieces, Cancelled cancelled)
    : net_(pieces.Net()), distance_(pieces.Distance()) {
  MakeEdges(pieces, cancelled);
  next_.resize(2 * edges_.size());
  LinkAround();
  TraceFaces();
  FindParts();
}

void Arrangement::MakeEdges(const Pieces& pieces, Cancelled cancelled) {
  std::vector<Edge> edges;
  edges.reserve(pieces.List().size());
  for (const Piece& piece : pieces.List()) {
    Edge edge{piece.from, piece.to, piece.k, piece.origin, piece.turns, Bulge(pieces.CurveOf(piece)), true};
    if (edge.from > edge.to) {
      std::swap(edge.from, edge.to);
      edge.k = -edge.k;
      edge.bulge = -edge.bulge;
      edge.turns = {-edge.turns[0], -edge.turns[1]};
      edge.isForward = false;
    }
    edges.push_back(edge);
  }
  std::sort(edges.begin(), edges.end(), [](const Edge& a, const Edge& b) {
    return std::tie(a.from, a.to, a.bulge, a.origin) < std::tie(b.from, b.to, b.bulge, b.origin);
  });
  MergeEdges(edges, cancelled);
}

// Edges with the same ends that follow each other within the distance are one.
void Arrangement::MergeEdges(std::vector<Edge>& edges, Cancelled cancelled) {
  for (std::size_t i = 0; i < edges.size();) {
    Edge merged = edges[i];
    std::size_t j = i + 1;
    for (; j < edges.size() && edges[j].from == merged.from && edges[j].to == merged.to &&
           edges[j].bulge - edges[j - 1].bulge <= distance_;
         ++j) {
      Add(merged.turns, edges[j].turns);
    }
    // It gets its shape from a piece of its direction.
    const bool wanted = merged.turns[0] + merged.turns[1] >= 0;
    for (std::size_t n = i; n < j && merged.isForward != wanted; ++n) {
      const Turns turns = merged.turns;
      merged = edges[n];
      merged.turns = turns;
    }
    if (merged.turns != Turns{0, 0} || cancelled == Cancelled::kKept) edges_.push_back(merged);
    i = j;
  }
}

Curve Arrangement::CurveOf(Half h) const {
  const Edge& edge = edges_[h / 2];
  if (h % 2 == 0) return {net_[edge.from], net_[edge.to], edge.k};
  return {net_[edge.to], net_[edge.from], -edge.k};
}

void Arrangement::LinkAround() {
  std::vector<std::uint32_t> starts(net_.Count() + 1, 0);
  for (Half h = 0; h < HalfCount(); ++h) ++starts[From(h) + 1];
  for (std::size_t v = 0; v < net_.Count(); ++v) starts[v + 1] += starts[v];
  std::vector<Half> halves(HalfCount());
  std::vector<std::uint32_t> place(starts.begin(), starts.end() - 1);
  for (Half h = 0; h < HalfCount(); ++h) halves[place[From(h)]++] = h;
  std::vector<Half> out;
  for (std::size_t v = 0; v < net_.Count(); ++v) {
    out.assign(halves.begin() + starts[v], halves.begin() + starts[v + 1]);
    if (out.size() > 2) SortAround(out);
    for (std::size_t i = 0; i < out.size(); ++i) {
      next_[TwinOf(out[(i + 1) % out.size()])] = out[i];
    }
  }
}

/// Whether `a` comes before `b` anticlockwise. Nearly tangent curves are compared where the shorter one ends,
/// or in the middle if both end there: there they are apart by more than the distance.
bool Arrangement::TurnsBefore(Half a, Half b, const Vector2d& reference) const {
  const Curve first = CurveOf(a), second = CurveOf(b);
  const auto fromReference = [&](const Curve& c) {
    const double angle = Heading(c, 0, reference);
    return angle < 0 ? angle + kTurn : angle;
  };
  const double headingA = fromReference(first), headingB = fromReference(second);
  if (std::abs(headingA - headingB) > kNearlyTangent) return headingA < headingB;
  const double shorter = std::min((first.b - first.a).Magnitude(), (second.b - second.a).Magnitude());
  const double reach = To(a) == To(b) ? shorter / 2 : shorter;
  const Vector2d tangent = TangentsOf(first).start;
  return Heading(first, reach, tangent) < Heading(second, reach, tangent);
}

// The circle of directions is cut open in its widest gap, so that no two nearly tangent curves are on both
// sides of the cut.
void Arrangement::SortAround(std::vector<Half>& out) const {
  const Vector2d axis(1, 0);
  std::vector<double> headings;
  headings.reserve(out.size());
  for (const Half h : out) headings.push_back(Heading(CurveOf(h), 0, axis));
  std::sort(headings.begin(), headings.end());
  double widest = headings.front() + kTurn - headings.back();
  double cut = headings.back() + widest / 2;
  for (std::size_t i = 1; i < headings.size(); ++i) {
    if (headings[i] - headings[i - 1] <= widest) continue;
    widest = headings[i] - headings[i - 1];
    cut = headings[i - 1] + widest / 2;
  }
  const Vector2d reference(std::cos(cut), std::sin(cut));
  std::sort(out.begin(), out.end(), [&](Half a, Half b) { return TurnsBefore(a, b, reference); });
}

double Arrangement::AreaLeftOf(Half h) const {
  const Curve curve = CurveOf(h);
  return Cross(curve.a, curve.b) / 2 + SegmentArea(curve);
}

void Arrangement::TraceFaces() {
  constexpr std::uint32_t kNone = 0xffffffffu;
  faceOf_.assign(HalfCount(), kNone);
  for (Half first = 0; first < HalfCount(); ++first) {
    if (faceOf_[first] != kNone) continue;
    const auto number = static_cast<std::uint32_t>(faces_.size());
    double area = 0;
    Half h = first;
    do {
      faceOf_[h] = number;
      area += AreaLeftOf(h);
      h = next_[h];
    } while (h != first);
    faces_.push_back({first, area, kNone});
  }
}

void Arrangement::FindParts() {
  constexpr std::uint32_t kNone = 0xffffffffu;
  std::vector<bool> isSeen(net_.Count(), false);
  std::vector<std::uint32_t> open;
  for (std::uint32_t seed = 0; seed < faces_.size(); ++seed) {
    if (faces_[seed].part != kNone) continue;
    const auto number = static_cast<std::uint32_t>(parts_.size());
    Part part{seed};
    faces_[seed].part = number;
    open.assign(1, seed);
    while (!open.empty()) {
      const std::uint32_t face = open.back();
      open.pop_back();
      ++part.faces;
      if (faces_[face].area < faces_[part.outer].area) part.outer = face;
      Half h = faces_[face].first;
      do {
        part.edges += h % 2;
        if (!isSeen[From(h)]) {
          isSeen[From(h)] = true;
          ++part.vertices;
        }
        const std::uint32_t other = faceOf_[TwinOf(h)];
        if (faces_[other].part == kNone) {
          faces_[other].part = number;
          open.push_back(other);
        }
        h = next_[h];
      } while (h != faces_[face].first);
    }
    parts_.push_back(part);
  }
}

}  // namespace geometry::region
