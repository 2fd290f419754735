#include "drawing/outline.h"

#include "contour/library.h"
#include "drawing/drawing.h"
#include "geometry/intersect.h"

namespace vanzet::drawing {
namespace {

using geometry::Kurve;
using geometry::Point;
using Kind = Element::Kind;

Fault FaultAt(const Element& element, std::string text) {
  return Fault{std::move(text), "", 0, element.column};
}

Result<void> CheckCorner(const Element& element, const Point& corner) {
  if (CheckReach(corner)) return {};
  return FaultAt(element, element.name + " meets its neighbour more than 10 km away");
}

/// Where a point comes to lie on the element beside it.
Result<Point> Projected(const Element& point, const Element& on) {
  if (on.kind == Kind::kLine) return geometry::On(on.line, point.point);
  if (geometry::Dist(on.circle.pc, point.point) < geometry::TOLERANCE) {
    return FaultAt(point, point.name + " is the centre of " + on.name + ": it lies nowhere on it");
  }
  return geometry::On(on.circle, point.point);
}

/// The corner between two elements that follow each other, chamfers left out.
Result<Point> CornerOf(const Element& a, const Element& b) {
  if (a.kind == Kind::kPoint && b.kind == Kind::kPoint) return a.point;
  if (a.kind == Kind::kPoint) return Projected(a, b);
  if (b.kind == Kind::kPoint) return Projected(b, a);
  const Point corner = geometry::Intof(a.line, b.line);
  if (corner.ok) return corner;
  return FaultAt(b, b.name + " does not meet " + a.name + ": they are parallel");
}

/// The same point; no zero has a sign.
Point Plain(const Point& point) {
  return {point.x + 0.0, point.y + 0.0};
}

/// What no two neighbours may be.
Result<void> CheckNeighbours(const std::vector<Element>& elements) {
  const auto kindAt = [&](std::size_t i) { return i < elements.size() ? elements[i].kind : Kind::kChamfer; };
  if (elements.empty() || elements.front().kind != Kind::kPoint) {
    return Fault{"a contour begins with a point", "", 0, elements.empty() ? 0 : elements.front().column};
  }
  if (elements.back().kind != Kind::kPoint) {
    return FaultAt(elements.back(), "a contour ends with a point, not with " + elements.back().name);
  }
  for (std::size_t i = 1; i < elements.size(); ++i) {
    const Kind before = kindAt(i - 1), behind = kindAt(i + 1);
    if (elements[i].kind == Kind::kChamfer && (before != Kind::kLine || behind != Kind::kLine)) {
      return FaultAt(elements[i], "a chamfer stands between two lines");
    }
    if (elements[i].kind == Kind::kCircle && (before != Kind::kPoint || behind != Kind::kPoint)) {
      return FaultAt(elements[i], elements[i].name + " does not stand between two points");
    }
  }
  return {};
}

/// Walks along the elements and adds a corner after the other.
class Walk {
 public:
  explicit Walk(const std::vector<Element>& elements) : elements_(elements) {}

  Result<Kurve> Go() {
    VANZET_TRY(auto corner, CornerOf(elements_[0], elements_[1]));
    VANZET_DO(CheckCorner(elements_[0], corner));
    last_ = Plain(corner);
    curve_.Start(last_);
    for (std::size_t i = 1; i < elements_.size(); ++i) {
      VANZET_DO(GoAlong(i));
    }
    if (curve_.SpanCount() == 0) return FaultAt(elements_.back(), "the contour has no length");
    return curve_;
  }

 private:
  /// Adds the corner at the end of element `i`, when it has one.
  Result<void> GoAlong(std::size_t i) {
    const Element& element = elements_[i];
    switch (element.kind) {
      case Kind::kPoint: return GoToPoint(i);
      case Kind::kCircle: return GoAbout(element, elements_[i + 1]);
      case Kind::kLine: return GoToCorner(i);
      case Kind::kChamfer: return {};  // was cut with the line before it
    }
    return {};
  }

  /// A point that follows a point is gone to straight. What led to it otherwise has come there already, and
  /// what goes on from it has to begin there.
  Result<void> GoToPoint(std::size_t i) {
    const Element& element = elements_[i];
    if (elements_[i - 1].kind == Kind::kPoint) Add(geometry::LINEAR, element.point, {0, 0});
    if (i + 1 == elements_.size() || elements_[i + 1].kind == Kind::kPoint) return {};
    VANZET_TRY(const auto begin, Projected(element, elements_[i + 1]));
    if (geometry::Dist(begin, last_) < geometry::TOLERANCE) return {};
    return FaultAt(element,
                   element.name + " is not on " + elements_[i + 1].name + ", along which it goes on");
  }

  Result<void> GoAbout(const Element& circle, const Element& point) {
    VANZET_TRY(const auto end, Projected(point, circle));
    if (geometry::Dist(last_, end) < geometry::TOLERANCE) {
      return FaultAt(circle, "an arc from a point to itself is not told: the whole circle has two halves");
    }
    Add(circle.direction, end, circle.circle.pc);
    return {};
  }

  Result<void> GoToCorner(std::size_t i) {
    const bool isCut = elements_[i + 1].kind == Kind::kChamfer;
    const std::size_t next = isCut ? i + 2 : i + 1;
    VANZET_TRY(const auto corner, CornerOf(elements_[i], elements_[next]));
    VANZET_DO(CheckCorner(elements_[next], corner));
    if (isCut) return Cut(corner, elements_[i + 1].length, next);
    Add(geometry::LINEAR, corner, {0, 0});
    return {};
  }

  /// Puts a chamfer at the corner where element `next` begins, or the corner itself where there is no room.
  Result<void> Cut(const Point& corner, double length, std::size_t next) {
    std::size_t behind = next + 1;
    if (elements_[behind].kind == Kind::kChamfer) ++behind;
    VANZET_TRY(const auto far, CornerOf(elements_[next], elements_[behind]));
    geometry::Vector2d back(corner, last_), onward(corner, far);
    const double before = back.Normalise(), after = onward.Normalise();
    if (!(length > 0) || length > before || length > after) {
      Add(geometry::LINEAR, corner, {0, 0});
      return {};
    }
    Add(geometry::LINEAR, corner + back * length, {0, 0});
    Add(geometry::LINEAR, corner + onward * length, {0, 0});
    return {};
  }

  void Add(int type, const Point& point, const Point& centre) {
    if (curve_.Add(type, Plain(point), centre, false)) last_ = Plain(point);
  }

  const std::vector<Element>& elements_;
  Kurve curve_;
  Point last_;  ///< where the contour has come
};

}  // namespace

Result<Kurve> OutlineOf(const std::vector<Element>& elements) {
  VANZET_DO(CheckNeighbours(elements));
  if (elements.size() < 2) return FaultAt(elements.back(), "the contour has no length");
  VANZET_TRY(const auto walked, contour::Guarded([&] { return Walk(elements).Go(); }));
  return walked;
}

Result<Kurve> ClosedThrough(const std::vector<Point>& corners) {
  Kurve curve;
  for (const Point& corner : corners) curve.Add(corner, false);
  if (curve.SpanCount() == 0) return Fault{"the contour has no length"};
  curve.Add(corners.front(), false);
  return curve;
}

}  // namespace vanzet::drawing
