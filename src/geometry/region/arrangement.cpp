#include "geometry/region/arrangement.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include "geometry/region/large_vector.h"

namespace geometry::region {
namespace {

constexpr double kTurn = 4;
/// Headings that are nearer than this are compared at the end of the shorter curve instead.
constexpr double kNearlyTangent = 1e-4;

/// A measure of the direction from the x axis anticlockwise, a quarter turn 1; it grows with the angle.
double HeadingOf(const Vector2d& v) {
  const double rise = std::abs(v.dy) / (std::abs(v.dx) + std::abs(v.dy));
  if (v.dy >= 0) return v.dx >= 0 ? rise : 2 - rise;
  return v.dx < 0 ? 2 + rise : 4 - rise;
}

void Add(Turns& sum, const Turns& turns, int factor = 1) {
  for (std::size_t i = 0; i < sum.size(); ++i) sum[i] += factor * turns[i];
}

}  // namespace

Arrangement::Arrangement(const Pieces& pieces, Cancelled cancelled, const Runs& runs,
                         const std::vector<RunEdge>& runEdges, std::uint32_t firstRun)
    : net_(pieces.Net()), distance_(pieces.Distance()), runs_(runs), firstRun_(firstRun) {
  MakeEdges(pieces, cancelled);
  AddRuns(runEdges);
  next_.resize(2 * edges_.size());
  LinkAround();
  TraceFaces();
  FindParts();
}

void Arrangement::MakeEdges(const Pieces& pieces, Cancelled cancelled) {
  std::vector<Edge> edges;
  ReserveLarge(edges, pieces.List().size());
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
  MergeEdges(edges, OrderOf(edges), cancelled);
}

// Small keys are sorted instead of the edges.
std::vector<Arrangement::Key> Arrangement::OrderOf(const std::vector<Edge>& edges) {
  std::vector<Key> keys;
  keys.reserve(edges.size());
  for (const Edge& edge : edges) {
    keys.push_back({std::uint64_t{edge.from} << 32 | edge.to, static_cast<std::uint32_t>(keys.size())});
  }
  std::sort(keys.begin(), keys.end(), [&](const Key& a, const Key& b) {
    if (a.ends != b.ends) return a.ends < b.ends;
    return std::tie(edges[a.edge].bulge, edges[a.edge].origin) <
           std::tie(edges[b.edge].bulge, edges[b.edge].origin);
  });
  return keys;
}

// Edges with the same ends that follow each other within the distance are one.
void Arrangement::MergeEdges(const std::vector<Edge>& edges, const std::vector<Key>& order,
                             Cancelled cancelled) {
  ReserveLarge(edges_, edges.size());
  for (std::size_t i = 0; i < order.size();) {
    Edge merged = edges[order[i].edge];
    std::size_t j = i + 1;
    for (; j < order.size() && order[j].ends == order[i].ends &&
           edges[order[j].edge].bulge - edges[order[j - 1].edge].bulge <= distance_;
         ++j) {
      Add(merged.turns, edges[order[j].edge].turns);
    }
    // It gets its shape from a piece of its direction.
    const bool wanted = merged.turns[0] + merged.turns[1] >= 0;
    for (std::size_t n = i; n < j && merged.isForward != wanted; ++n) {
      const Turns turns = merged.turns;
      merged = edges[order[n].edge];
      merged.turns = turns;
    }
    if (merged.turns != Turns{0, 0} || cancelled == Cancelled::kKept) edges_.push_back(merged);
    i = j;
  }
}

void Arrangement::AddRuns(const std::vector<RunEdge>& runEdges) {
  std::uint32_t origin = firstRun_;
  for (const RunEdge& run : runEdges) {
    Edge edge{run.from, run.to, 0, origin++, {1, 0}, 0, true};
    if (run.from > run.to) edge = {run.to, run.from, 0, edge.origin, {-1, 0}, 0, false};
    edges_.push_back(edge);
  }
}

double Arrangement::AreaOfRun(Half h) const {
  const Run& run = runs_.list[RunOf(h)];
  double area = 0;
  for (std::size_t i = run.firstCurve; i < run.firstCurve + run.curveCount; ++i) {
    const Curve& c = runs_.curves[i];
    area += Cross(c.a, c.b) / 2 + SegmentArea(c);
  }
  return IsForward(h) ? area : -area;
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
  std::vector<Ray> rays;
  for (std::size_t v = 0; v < net_.Count(); ++v) {
    out.assign(halves.begin() + starts[v], halves.begin() + starts[v + 1]);
    if (out.size() > 2) {
      SortAround(out, rays);
      runsAreApart_ &= std::none_of(out.begin(), out.end(), [&](Half h) { return IsRun(h); });
    }
    for (std::size_t i = 0; i < out.size(); ++i) {
      next_[TwinOf(out[(i + 1) % out.size()])] = out[i];
    }
  }
}

/// Whether `a` comes before `b` anticlockwise, of curves that are nearly tangent. They are compared where the
/// shorter one ends, or in the middle if both end there: there they are apart by more than the distance.
bool Arrangement::TurnsBefore(Half a, Half b) const {
  const Curve first = CurveOf(a), second = CurveOf(b);
  const double shorter = std::min((first.b - first.a).Magnitude(), (second.b - second.a).Magnitude());
  const double reach = To(a) == To(b) ? shorter / 2 : shorter;
  const Vector2d tangent = TangentsOf(first).start;
  return Heading(first, reach, tangent) < Heading(second, reach, tangent);
}

// The circle of directions is cut open in its widest gap, so that no two nearly tangent curves are on both
// sides of the cut.
void Arrangement::SortAround(std::vector<Half>& out, std::vector<Ray>& rays) const {
  rays.clear();
  for (const Half h : out) rays.push_back({HeadingOf(TangentsOf(CurveOf(h)).start), h});
  std::sort(rays.begin(), rays.end(), [](const Ray& a, const Ray& b) { return a.heading < b.heading; });
  double widest = rays.front().heading + kTurn - rays.back().heading;
  std::size_t first = 0;
  for (std::size_t i = 1; i < rays.size(); ++i) {
    if (rays[i].heading - rays[i - 1].heading <= widest) continue;
    widest = rays[i].heading - rays[i - 1].heading;
    first = i;
  }
  for (std::size_t i = 0; i < first; ++i) rays[i].heading += kTurn;
  std::sort(rays.begin(), rays.end(), [&](const Ray& a, const Ray& b) {
    return std::abs(a.heading - b.heading) > kNearlyTangent ? a.heading < b.heading
                                                            : TurnsBefore(a.half, b.half);
  });
  for (std::size_t i = 0; i < out.size(); ++i) out[i] = rays[i].half;
}

double Arrangement::AreaLeftOf(Half h) const {
  if (IsRun(h)) return AreaOfRun(h);
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
