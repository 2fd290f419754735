#pragma once

#include <optional>

#include "geometry/kurve.h"
#include "geometry/offset/box_levels.h"

namespace geometry {

/// A raw offset of a compact contour, with all that the removal of loops needs of it.
struct RawVertices {
  Kurve contour;
  std::vector<FlatBox> boxes;  ///< of its spans
  bool asStored = false;       ///< no span is null, and no arc is too flat to be one
  std::optional<double> area;  ///< of its spans, untransformed
};

/// The vertices of a raw offset while they are made.
///
/// Of the last span alone the properties are kept, since its end may move. When the next one follows they go
/// into its box and the area, so that nobody makes them again from the vertices.
///
/// Errors   what `SetProperties` throws, if `measured`
class VertexChain {
 public:
  /// Without `measured` there are neither boxes nor an area.
  VertexChain(const Matrix& m, int spans, bool measured);

  bool Started() const { return k_.started; }
  void Start(const Point& p);
  Point End() const { return end_; }

  /// These add a target whose tangents are set, or an arc from the end of the chain. One that is shorter than
  /// `TOLERANCE` is left out.
  void Add(const Span& target);
  void AddArc(const Span& arc);
  /// The last span becomes one along `along` that ends at `p`.
  void MoveEnd(const Span& along, const Point& p);
  void MoveStart(const Point& p);

  RawVertices Take();

 private:
  bool Append(const Span& span);
  void SetTangents(Span& span);
  void CompleteLast();

  const bool measured_;
  Kurve k_;
  Point end_;
  Span last_;  ///< the span that ends there, if there is one
  std::vector<FlatBox> boxes_;
  double area_ = 0;
  bool asStored_ = true;
  bool startMoved_ = false;  ///< after the first span was completed
};

}  // namespace geometry
