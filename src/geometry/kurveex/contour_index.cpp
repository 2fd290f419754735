#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "geometry/contour_index.h"
#include "geometry/kurveex.h"

/// Windings and nearest points of a contour: the plain search, and the index with the same results.
namespace geometry {
namespace {

/// The share of one line of a contour in the winding about `p`: 1 when it passes upwards on the right, -1
/// when downwards. A line includes its lower end and not its upper one.
int WindingOfLine(const Point& a, const Point& b, const Point& p) {
  const double side = (a.x - p.x) * (b.y - p.y) - (a.y - p.y) * (b.x - p.x);
  if (a.y <= p.y) return b.y > p.y && side > 0 ? 1 : 0;
  return b.y <= p.y && side < 0 ? -1 : 0;
}

constexpr std::uint32_t kSpansOfALeaf = 8;

/// Beyond this size products of differences overflow, and nothing may be concluded from boxes.
constexpr double kModerate = 1e150;

bool IsModerate(const Point& p) {
  return std::fabs(p.x) < kModerate && std::fabs(p.y) < kModerate;
}

double SizeOf(const Point& p) {
  return std::fabs(p.x) + std::fabs(p.y);
}

/// Of `p` from the box; 0 inside. Not a number for points that are none.
double Distance(const Box& box, const Point& p) {
  const double dx = p.x < box.min.x ? box.min.x - p.x : p.x > box.max.x ? p.x - box.max.x : p.x - p.x;
  const double dy = p.y < box.min.y ? box.min.y - p.y : p.y > box.max.y ? p.y - box.max.y : p.y - p.y;
  return std::sqrt(dx * dx + dy * dy);
}

}  // namespace

/// The best so far, by the rule of the plain search: the first span within `TOLERANCE`, or else the first of
/// the least distance.
struct ContourIndex::Nearest {
  double distance = 1e100;
  Point point = INVALID_POINT;
  std::uint32_t span = 0;
  double t = 0;
  bool found = false;
  double slack = 0;  ///< covers the rounding of nearest points

  bool Within() const { return found && distance < TOLERANCE; }

  void Offer(double d, std::uint32_t i, const Point& p, double along) {
    const bool within = d < TOLERANCE;
    const bool better = Within() ? within && i < span : d < distance || (found && d == distance && i < span);
    if (better) *this = {d, p, i, along, true, slack};
  }

  /// Whether spans no nearer than `d` may still win.
  bool MayLieAt(double d) const { return d <= std::max(distance, TOLERANCE) * (1 + 1e-9) + slack; }
};

ContourIndex::ContourIndex(const KurveEx& contour) {
  spans_.resize(contour.spans.size());
  vertices_.reserve(spans_.size() + 1);
  vertices_.push_back(contour.Start());
  for (std::size_t i = 0; i < spans_.size(); ++i) {
    contour.Get(i, spans_[i]);
    linesOnly_ = linesOnly_ && spans_[i].dir == LINEAR;
    vertices_.push_back(spans_[i].p1);
  }
  if (!spans_.empty()) Build(0, static_cast<std::uint32_t>(spans_.size()));
}

std::uint32_t ContourIndex::Build(std::uint32_t first, std::uint32_t last) {
  const auto index = static_cast<std::uint32_t>(nodes_.size());
  nodes_.emplace_back();
  Node node;
  node.first = first;
  node.last = last;
  if (last - first <= kSpansOfALeaf) {
    Enclose(node);
  } else {
    const std::uint32_t middle = first + (last - first) / 2;
    const std::uint32_t half = Build(first, middle);
    node.second = Build(middle, last);
    for (const std::uint32_t child : {half, node.second}) {
      node.box.Insert(nodes_[child].box);
      node.ends.Insert(nodes_[child].ends);
      node.finite = node.finite && nodes_[child].finite;
    }
  }
  nodes_[index] = node;
  return index;
}

void ContourIndex::Enclose(Node& node) const {
  for (std::uint32_t i = node.first; i < node.last; ++i) {
    node.box.Insert(spans_[i].box);
    // The ends once more: a null span's box may be out of date, and its start is where it counts.
    node.box.Insert(spans_[i].p0);
    node.box.Insert(spans_[i].p1);
  }
  for (std::uint32_t i = node.first; i <= node.last; ++i) {
    node.ends.Insert(vertices_[i]);
    node.finite = node.finite && IsModerate(vertices_[i]);
  }
}

int ContourIndex::windingNumber(const Point& p) const {
  if (spans_.empty()) throw L"No Spans inside!";
  if (!linesOnly_) throw L"Arc span not allowed in windingNumber";
  return IsModerate(p) ? Winding(0, p) : PlainWinding(nodes_[0], p);
}

int ContourIndex::Inside(const Point& p) const {
  return std::abs(windingNumber(p)) != 1 ? 1 : 0;
}

int ContourIndex::PlainWinding(const Node& node, const Point& p) const {
  int count = 0;
  for (std::uint32_t i = node.first; i < node.last; ++i) {
    count += WindingOfLine(vertices_[i], vertices_[i + 1], p);
  }
  return count;
}

int ContourIndex::Winding(std::uint32_t index, const Point& p) const {
  const Node& node = nodes_[index];
  if (node.finite) {
    // Above, below or left of `p` nothing counts.
    if (node.ends.min.y > p.y || node.ends.max.y < p.y || node.ends.max.x < p.x) return 0;
    // Right of `p` every passage of its height counts, and those in between cancel out.
    if (node.ends.min.x > p.x) {
      return (vertices_[node.last].y > p.y ? 1 : 0) - (vertices_[node.first].y > p.y ? 1 : 0);
    }
  }
  if (node.second == 0) return PlainWinding(node, p);
  return Winding(index + 1, p) + Winding(node.second, p);
}

Point ContourIndex::Near(const Point& p, int& spanNumber, double& t) const {
  Nearest found;
  if (!nodes_.empty()) {
    const Box& all = nodes_[0].box;
    found.slack = TIGHT_TOLERANCE + 1e-14 * (SizeOf(p) + SizeOf(all.min) + SizeOf(all.max));
    Search(0, p, found);
  }
  spanNumber = found.found ? static_cast<int>(found.span) + 1 : 0;
  t = found.t;
  return found.point;
}

void ContourIndex::Search(std::uint32_t index, const Point& p, Nearest& found) const {
  const Node& node = nodes_[index];
  if (!found.MayLieAt(Distance(node.box, p))) return;
  if (node.second == 0) {
    for (std::uint32_t i = node.first; i < node.last; ++i) {
      double along = 0;
      const Point candidate = spans_[i].NearClamped(p, along);
      found.Offer(Dist(p, candidate), i, candidate, along);
    }
    return;
  }
  const bool firstIsNearer = Distance(nodes_[index + 1].box, p) <= Distance(nodes_[node.second].box, p);
  Search(firstIsNearer ? index + 1 : node.second, p, found);
  Search(firstIsNearer ? node.second : index + 1, p, found);
}

int KurveEx::windingNumber(const Point& p) const {
  if (spans.empty()) throw L"No Spans inside!";
  int count = 0;
  Point from = Start();
  for (std::size_t i = 0; i < spans.size(); ++i) {
    const Span& span = spans[reversed ? spans.size() - 1 - i : i];
    if (span.dir != LINEAR) throw L"Arc span not allowed in windingNumber";
    const Point& to = reversed ? span.p0 : span.p1;
    count += WindingOfLine(from, to, p);
    from = to;
  }
  return count;
}

int KurveEx::Inside(const Point& p) const {
  return std::abs(windingNumber(p)) != 1 ? 1 : 0;
}

Point KurveEx::Near(const Point& p, int& spanNumber, double& t) const {
  double best = 1e100;
  Point nearest = INVALID_POINT;
  spanNumber = 0;
  t = 0.0;
  for (std::size_t i = 0; i < spans.size() && !(best < TOLERANCE); ++i) {
    double along = 0;
    const Point candidate = reversed ? ReadSpan(i).NearClamped(p, along) : spans[i].NearClamped(p, along);
    const double distance = Dist(p, candidate);
    if (distance < best) {
      best = distance;
      nearest = candidate;
      spanNumber = static_cast<int>(i) + 1;
      t = along;
    }
  }
  return nearest;
}

}  // namespace geometry
