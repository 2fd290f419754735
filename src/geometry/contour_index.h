#pragma once

#include "geometry/kurveex.h"

namespace geometry {

/// An index for many queries about one contour. Building it takes time proportional to the number of spans,
/// and each query about the logarithm of that number.
///
/// Shape    a tree of boxes around runs of neighbouring spans, with pairs up to one box around all, and a
///          copy of the contour in reading order, so that the contour may change or go afterwards
/// Results  those of `KurveEx::windingNumber`, `Inside` and `Near` to the last bit, including what they
///          throw. The winding may differ only where products of coordinate differences exceed the range of a
///          double
class ContourIndex {
 public:
  explicit ContourIndex(const KurveEx& contour);

  int windingNumber(const Point& p) const;
  int Inside(const Point& p) const;
  Point Near(const Point& p, int& spanNumber, double& t) const;

 private:
  /// Spans `first` to `last` - 1; the nodes of its halves follow it, the second from `second` on.
  struct Node {
    Box box;   ///< of the spans, for distances
    Box ends;  ///< of the ends of its lines, for windings
    std::uint32_t first = 0, last = 0;
    std::uint32_t second = 0;  ///< 0: no halves
    bool finite = true;        ///< all coordinates are moderate numbers
  };
  struct Nearest;

  std::uint32_t Build(std::uint32_t first, std::uint32_t last);
  void Enclose(Node& node) const;
  int Winding(std::uint32_t index, const Point& p) const;
  int PlainWinding(const Node& node, const Point& p) const;
  void Search(std::uint32_t index, const Point& p, Nearest& found) const;

  std::vector<Span> spans_;
  std::vector<Point> vertices_;  ///< one more than spans
  std::vector<Node> nodes_;
  bool linesOnly_ = true;
};

}  // namespace geometry
