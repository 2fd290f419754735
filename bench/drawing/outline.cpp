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
  return Fault{.text = std::move(text), .column = element.column};
}

Result<void> CheckCorner(const Element& element, const Point& corner) {
  if (CheckReach(corner)) return {};
  return FaultAt(element, element.name + " meets its neighbour more than 10 km away");
}

/// Projects a point on the element next to it.
Result<Point> ProjectPoint(const Element& point, const Element& on) {
  if (on.kind == Kind::kLine) return geometry::On(on.line, point.point);
  if (geometry::Dist(on.circle.pc, point.point) < geometry::TOLERANCE) {
    return FaultAt(point,
                   point.name + " is the centre of " + on.name + ": it has no projection on the circle");
  }
  return geometry::On(on.circle, point.point);
}

/// The corner between two successive elements, chamfers left out.
Result<Point> CornerOf(const Element& a, const Element& b) {
  if (a.kind == Kind::kPoint && b.kind == Kind::kPoint) return a.point;
  if (a.kind == Kind::kPoint) return ProjectPoint(a, b);
  if (b.kind == Kind::kPoint) return ProjectPoint(b, a);
  const Point corner = geometry::Intof(a.line, b.line);
  if (corner.ok) return corner;
  return FaultAt(b, b.name + " does not meet " + a.name + ": they are parallel");
}

/// The same point without signs of zeros.
Point WithoutNegativeZeros(const Point& point) {
  return {point.x + 0.0, point.y + 0.0};
}

/// Checks the kinds of neighbouring elements.
Result<void> CheckNeighbours(const std::vector<Element>& elements) {
  const auto kindAt = [&](std::size_t i) { return i < elements.size() ? elements[i].kind : Kind::kChamfer; };
  if (elements.empty() || elements.front().kind != Kind::kPoint) {
    return Fault{.text = "a contour must begin with a point",
                 .column = elements.empty() ? 0 : elements.front().column};
  }
  if (elements.back().kind != Kind::kPoint) {
    return FaultAt(elements.back(), "a contour must end with a point, not with " + elements.back().name);
  }
  for (std::size_t i = 1; i < elements.size(); ++i) {
    const Kind before = kindAt(i - 1), after = kindAt(i + 1);
    if (elements[i].kind == Kind::kChamfer && (before != Kind::kLine || after != Kind::kLine)) {
      return FaultAt(elements[i], "a chamfer must be between two lines");
    }
    if (elements[i].kind == Kind::kCircle && (before != Kind::kPoint || after != Kind::kPoint)) {
      return FaultAt(elements[i], elements[i].name + " is not between two points");
    }
  }
  return {};
}

/// Makes the contour: goes along the elements and adds one corner after the other.
class OutlineMaker {
 public:
  explicit OutlineMaker(const std::vector<Element>& elements) : elements_(elements) {}

  Result<Kurve> Make() {
    VANZET_TRY(auto corner, CornerOf(elements_[0], elements_[1]));
    VANZET_DO(CheckCorner(elements_[0], corner));
    last_ = WithoutNegativeZeros(corner);
    curve_.Start(last_);
    for (std::size_t i = 1; i < elements_.size(); ++i) {
      VANZET_DO(AddElement(i));
    }
    if (curve_.SpanCount() == 0) return FaultAt(elements_.back(), "the contour has no length");
    return curve_;
  }

 private:
  /// Adds the corner at the end of element `i`, when it has one.
  Result<void> AddElement(std::size_t i) {
    const Element& element = elements_[i];
    switch (element.kind) {
      case Kind::kPoint: return AddPoint(i);
      case Kind::kCircle: return AddArc(element, elements_[i + 1]);
      case Kind::kLine: return AddCorner(i);
      case Kind::kChamfer: return {};  // was added with the line before it
    }
    return {};
  }

  /// Adds a straight span to a point that follows a point; an element before it has already reached it. The
  /// element after it must begin there.
  Result<void> AddPoint(std::size_t i) {
    const Element& element = elements_[i];
    if (elements_[i - 1].kind == Kind::kPoint) Add(geometry::LINEAR, element.point, {0, 0});
    if (i + 1 == elements_.size() || elements_[i + 1].kind == Kind::kPoint) return {};
    VANZET_TRY(const auto begin, ProjectPoint(element, elements_[i + 1]));
    if (geometry::Dist(begin, last_) < geometry::TOLERANCE) return {};
    return FaultAt(element, element.name + " is not on " + elements_[i + 1].name + ", which follows it");
  }

  Result<void> AddArc(const Element& circle, const Element& point) {
    VANZET_TRY(const auto end, ProjectPoint(point, circle));
    if (geometry::Dist(last_, end) < geometry::TOLERANCE) {
      return FaultAt(circle, "an arc cannot lead from a point to itself: a whole circle has two halves");
    }
    Add(circle.direction, end, circle.circle.pc);
    return {};
  }

  Result<void> AddCorner(std::size_t i) {
    const bool isCut = elements_[i + 1].kind == Kind::kChamfer;
    const std::size_t next = isCut ? i + 2 : i + 1;
    VANZET_TRY(const auto corner, CornerOf(elements_[i], elements_[next]));
    VANZET_DO(CheckCorner(elements_[next], corner));
    if (isCut) return AddChamfer(corner, elements_[i + 1].length, next);
    Add(geometry::LINEAR, corner, {0, 0});
    return {};
  }

  /// Adds a chamfer at the corner where element `next` begins, or the corner itself where the chamfer does
  /// not fit.
  Result<void> AddChamfer(const Point& corner, double length, std::size_t next) {
    std::size_t second = next + 1;
    if (elements_[second].kind == Kind::kChamfer) ++second;
    VANZET_TRY(const auto far, CornerOf(elements_[next], elements_[second]));
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
    if (curve_.Add(type, WithoutNegativeZeros(point), centre, false)) last_ = WithoutNegativeZeros(point);
  }

  const std::vector<Element>& elements_;
  Kurve curve_;
  Point last_;  ///< the end of the contour so far
};

}  // namespace

Result<Kurve> OutlineOf(const std::vector<Element>& elements) {
  VANZET_DO(CheckNeighbours(elements));
  if (elements.size() < 2) return FaultAt(elements.back(), "the contour has no length");
  VANZET_TRY(const auto walked, contour::Guarded([&] { return OutlineMaker(elements).Make(); }));
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
