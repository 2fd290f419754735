#include <algorithm>
#include <cmath>
#include <optional>

#include "geometry/region/runs.h"
#include "geometry/region/separate_loops.h"

/// From the faces of an arrangement to the loops of a region.
namespace geometry::region {
namespace {

constexpr int kMostAttempts = 4;
constexpr double kCoarser = 8;
constexpr double kHalfTurn = 3.141592653589793;
/// How far pieces may move from their strokes, in distances, when there are runs, which are 16 of them away
/// from all that they do not continue.
constexpr double kInPlace = 4;

/// Collects the boundary between the faces inside and those outside.
class Boundary {
 public:
  Boundary(const Sketch& sketch, const Arrangement& map, const Runs& runs, Rule rule, double distance)
      : sketch_(sketch),
        map_(map),
        runs_(runs),
        rule_(rule),
        distance_(distance),
        isDone_(map.HalfCount(), false),
        isOpen_(map.VertexCount(), false) {}

  Region Collect(Cancelled cancelled) {
    Region region;
    for (Half h = 0; h < map_.HalfCount(); ++h) {
      if (!isDone_[h] && Bounds(h)) Follow(h, region.loops);
      if (cancelled == Cancelled::kKept && h % 2 == 0 && IsLoose(h)) region.loose.push_back(SpanOf(h));
    }
    std::stable_sort(region.loops.begin(), region.loops.end(), [](const RegionLoop& a, const RegionLoop& b) {
      return std::abs(a.Area()) > std::abs(b.Area());
    });
    return region;
  }

 private:
  using Chain = std::vector<Half>;

  bool IsInside(Half h) const { return rule_(map_.LeftOf(h)); }
  bool Bounds(Half h) const { return IsInside(h) && !IsInside(TwinOf(h)); }
  bool IsLoose(Half h) const { return !IsInside(h) && !IsInside(TwinOf(h)); }

  /// The next half of the boundary: clockwise from the way back, so that the inside stays on the left.
  Half After(Half h) const {
    Half out = map_.Clockwise(TwinOf(h));
    while (!Bounds(out)) out = map_.Clockwise(out);
    return out;
  }

  /// Follows the boundary from `first` until it closes, and cuts off a loop wherever it comes to one of its
  /// own vertices.
  void Follow(Half first, std::vector<RegionLoop>& loops) {
    Chain chain;
    Half h = first;
    do {
      isDone_[h] = true;
      chain.push_back(h);
      h = After(h);
    } while (h != first);
    Split(chain, loops);
  }

  void Split(const Chain& chain, std::vector<RegionLoop>& loops) {
    Chain open;
    for (const Half h : chain) {
      open.push_back(h);
      isOpen_[map_.From(h)] = true;
      if (!isOpen_[map_.To(h)]) continue;
      auto start = open.end() - 1;
      while (map_.From(*start) != map_.To(h)) --start;
      for (auto part = start; part != open.end(); ++part) isOpen_[map_.From(*part)] = false;
      AddLoop(Chain(start, open.end()), loops);
      open.erase(start, open.end());
    }
  }

  /// Loops that are nowhere wider than the distance are noise; those with a run are wider.
  void AddLoop(Chain chain, std::vector<RegionLoop>& loops) const {
    const bool hasRun = std::any_of(chain.begin(), chain.end(), [&](Half h) { return map_.IsRun(h); });
    if (hasRun || !IsNoise(chain)) loops.push_back(LoopOf(std::move(chain)));
  }

  bool IsNoise(const Chain& chain) const {
    double area = 0, length = 0;
    const Vector2d origin = map_.At(map_.From(chain.front()));
    for (const Half h : chain) {
      Curve c = map_.CurveOf(h);
      c.a = c.a - origin;
      c.b = c.b - origin;
      area += Cross(c.a, c.b) / 2 + SegmentArea(c);
      length += LengthOf(c);
    }
    return std::abs(area) <= length * distance_;
  }

  bool Continues(Half before, Half h) const {
    return !map_.IsRun(h) && map_.OriginOf(before) == map_.OriginOf(h) &&
           map_.IsForward(before) == map_.IsForward(h);
  }

  /// Joins the parts of a stroke again. A whole circle becomes two spans.
  RegionLoop LoopOf(Chain chain) const {
    std::size_t start = 0;
    while (start < chain.size() &&
           Continues(chain[(start + chain.size() - 1) % chain.size()], chain[start])) {
      ++start;
    }
    const bool isCircle = start == chain.size();
    if (!isCircle)
      std::rotate(chain.begin(), chain.begin() + static_cast<std::ptrdiff_t>(start), chain.end());
    RegionLoop loop;
    double sweep = 0;
    for (std::size_t i = 0; i < chain.size(); ++i) {
      if (map_.IsRun(chain[i])) {
        AppendRun(chain[i], loop);
        continue;
      }
      const double part = isCircle ? SweepOf(chain[i]) : 0;
      const bool isLong = isCircle && sweep > 0 && sweep + part > kHalfTurn * (1 + 1e-9);
      if (i > 0 && Continues(chain[i - 1], chain[i]) && !isLong) {
        loop.spans.back().p1 = sketch_.PointAt(map_.At(map_.To(chain[i])));
        sweep += part;
        continue;
      }
      loop.spans.push_back(SpanOf(chain[i]));
      sweep = part;
    }
    return loop;
  }

  /// Runs are passed forwards, since their left has one turn more than their right.
  void AppendRun(Half h, RegionLoop& loop) const {
    const Run& run = runs_.list[map_.RunOf(h)];
    const std::vector<RegionSpan>& spans = run.loop->spans;
    const std::size_t first = loop.spans.size(), count = run.spanCount;
    const std::size_t toEnd = std::min(count, spans.size() - run.firstSpan);
    const auto start = spans.begin() + static_cast<std::ptrdiff_t>(run.firstSpan);
    loop.spans.insert(loop.spans.end(), start, start + static_cast<std::ptrdiff_t>(toEnd));
    loop.spans.insert(loop.spans.end(), spans.begin(),
                      spans.begin() + static_cast<std::ptrdiff_t>(count - toEnd));
    loop.spans[first].p0 = sketch_.PointAt(map_.At(map_.From(h)));
    loop.spans.back().p1 = sketch_.PointAt(map_.At(map_.To(h)));
  }

  double SweepOf(Half h) const {
    const Curve c = map_.CurveOf(h);
    return std::abs(c.k) * LengthOf(c);
  }

  RegionSpan SpanOf(Half h) const {
    RegionSpan span = sketch_.Origin(map_.OriginOf(h));
    if (!map_.IsForward(h)) span.dir = -span.dir;
    span.p0 = sketch_.PointAt(map_.At(map_.From(h)));
    span.p1 = sketch_.PointAt(map_.At(map_.To(h)));
    return span;
  }

  const Sketch& sketch_;
  const Arrangement& map_;
  const Runs& runs_;
  Rule rule_;
  double distance_;
  std::vector<bool> isDone_;
  std::vector<bool> isOpen_;
};

/// Whether all pieces are within the distance of the strokes that they are parts of.
bool AreInPlace(const Pieces& pieces, const std::vector<Stroke>& strokes, double distance) {
  return std::all_of(pieces.List().begin(), pieces.List().end(), [&](const Piece& piece) {
    const Stroke& stroke = strokes[piece.origin];
    return std::abs(LeftOf(stroke, pieces.Net()[piece.from])) <= distance &&
           std::abs(LeftOf(stroke, pieces.Net()[piece.to])) <= distance;
  });
}

Region Failed() {
  Region failed;
  failed.ok = false;
  return failed;
}

/// The region, or a failed one where there are too many cuts, or nothing when another distance may do.
std::optional<Region> Attempt(const Sketch& sketch, const Runs& runs, Rule rule, Cancelled cancelled,
                              double distance) {
  Pieces pieces(distance);
  for (const Stroke& stroke : sketch.Strokes()) pieces.Add(stroke);
  std::vector<RunEdge> runEdges;
  for (const Run& run : runs.list) {
    const std::uint32_t from = pieces.AddVertex(run.from);
    runEdges.push_back({from, pieces.AddVertex(run.to)});
  }
  const Normalised outcome = pieces.Normalise(runs.curves.size());
  if (outcome == Normalised::kTooMany) return Failed();
  if (outcome == Normalised::kUnsettled) return std::nullopt;
  if (!runs.list.empty() && !AreInPlace(pieces, sketch.Strokes(), kInPlace * distance)) return std::nullopt;
  pieces.Finish();
  Arrangement map(pieces, cancelled, runs, runEdges, static_cast<std::uint32_t>(sketch.Strokes().size()));
  if (!map.Label()) return std::nullopt;
  return Boundary(sketch, map, runs, rule, distance).Collect(cancelled);
}

bool IsPositive(const Turns& turns) {
  return turns[0] > 0;
}

}  // namespace

Region FacesOf(const Sketch& sketch, Rule rule, Cancelled cancelled) {
  if (!sketch.IsSound()) return Failed();
  if (sketch.Strokes().empty()) return {};
  double distance = sketch.Distance();
  for (int attempt = 0; attempt < kMostAttempts; ++attempt, distance *= kCoarser) {
    if (auto region = Attempt(sketch, {}, rule, cancelled, distance)) return *region;
  }
  return Failed();
}

// The more is proved of the loops, the less is left to be arranged.
Region PositiveFacesOf(Sketch& sketch, std::vector<RegionLoop> loops, double resolution) {
  const SeparateLoops separate(sketch, loops, resolution);
  if (separate.IsSound() && separate.MeetingCount() == 0) return separate.TakeBoundary(loops);
  if (separate.IsSound()) {
    Sketch meeting = sketch;
    const Runs runs = AddLoopsInRuns(meeting, loops, separate);
    if (auto region = Attempt(meeting, runs, IsPositive, Cancelled::kDropped, resolution)) return *region;
  }
  sketch.AddLoops(loops, {1, 0});
  return FacesOf(sketch, IsPositive);
}

}  // namespace geometry::region
