#pragma once

#include "geometry/span.h"

namespace geometry {

class KurveEx;

inline constexpr int SPANSTORAGE = 32;

/// The storage of 32 vertices, in columns.
struct SpanVertexBlock {
  std::int32_t type[SPANSTORAGE];
  std::uint32_t ID[SPANSTORAGE];
  IndexWord index[SPANSTORAGE];
  double x[SPANSTORAGE], y[SPANSTORAGE], xc[SPANSTORAGE], yc[SPANSTORAGE];

  SpanVertexBlock();  ///< clears `index` only
};

/// The compact contour: vertices in blocks, read as spans on demand.
///
/// Shape     vertices from 0, spans from 1; span i runs from vertex i-1 to vertex i.
///           Vertex 0 has type 0 and no centre
/// Matrix    the contour is stored untransformed; the matrix it derives from
///           applies on reading, when asked for
/// Reversed  changes the reading only; writes and `Add` work in the order of storage
/// Owns      its blocks; copies are deep
/// Errors    numbers out of range, null objects and differential scales throw
///           wide strings, and the contour stays as it was
class Kurve : public Matrix {
 public:
  std::vector<SpanVertexBlock*> blocks;
  bool started = false;
  std::int32_t nVertices = 0;
  bool reversed = false;

  Kurve();
  Kurve(const Kurve& k);
  /// These leave `k` empty.
  Kurve(Kurve&& k) noexcept;
  Kurve& operator=(Kurve&& k) noexcept;
  /// The spans as they are stored, with null spans, under the same `reversed`.
  explicit Kurve(const KurveEx& k);
  /// The circle about `c` in direction `dir`, two half circles from (c.x + r, c.y), all of ID
  /// FULL_CIRCLE_KURVE.
  Kurve(const Point& c, double r, int dir);
  ~Kurve();
  Kurve& operator=(const Kurve& k);
  Kurve& operator=(const Matrix& m);  ///< the matrix alone

  /// Drops vertices, start and `reversed`; the matrix stays.
  void Clear();
  /// Starts anew at `p`, dropping all vertices.
  void Start(const Point& p);
  /// Appends a vertex, or starts there. One within `TOLERANCE` of the last is refused with false, or, with
  /// `addNullSpans`, stored as a line.
  bool Add(int type, const Point& p, const Point& pc, bool addNullSpans = true);
  bool Add(const spVertex& v, bool addNullSpans = true);
  bool Add(const Span& s, bool addNullSpans = true);
  bool Add(const Point& p, bool addNullSpans = true);
  /// Appends the spans of `k`, brought into this contour's own coordinates, behind a line to its start if it
  /// begins elsewhere. A contour without spans adds nothing.
  void Add(const Kurve& k, bool addNullSpans = true);
  /// Throws L"Invalid attempt to add null span - no start".
  void AddNullSpan();
  /// Throws L"Kurve::Replace - vertexNumber out of range" for a number above `nVertices`. That number itself
  /// passes; it writes the slot behind the last vertex if storage has one, and nothing otherwise.
  void Replace(int vertexNumber, int type, const Point& p, const Point& pc, std::uint32_t ID = UNMARKED);

  /// Readings by number throw L"Kurve::Get - vertexNumber out of range". The type is returned; the centre
  /// stays as it was for vertex 0 of a reversed contour.
  int Get(int vertexNumber, Point& p, Point& pc) const;
  int Get(int vertexNumber, Point3d& p, Point3d& pc) const;
  int Get(int vertexNumber, spVertex& v) const;
  /// Returns the span's `dir`, or -99 below two vertices. The caches are stale unless asked for, or made by a
  /// transform. Index words stay as they were.
  int Get(int spanNumber, Span& span, bool returnProperties = false, bool transform = false) const;
  /// As stored, whatever `reversed` says.
  int GetStored(int spanNumber, Span& span) const;
  /// Reversed reading takes the ID of the mirrored vertex, not of the span's owner, and so is one span off.
  std::uint32_t GetSpanID(int vertexNumber) const;
  /// Throws L"Kurve::GetIndex - vertexNumber out of range".
  IndexWord GetIndex(int vertexNumber) const;
  /// In the order of storage. Throws L"Kurve::ModifyIndex - vertexNumber out of range"; `nVertices` passes as
  /// it does in `Replace`.
  void ModifyIndex(int vertexNumber, IndexWord value);
  int SpanCount() const { return nVertices > 0 ? nVertices - 1 : 0; }

  bool Closed() const;
  /// Length, area and extent under the matrix. They throw L"Differential Scale not allowed for this method".
  double Perim() const;
  double Area() const;  ///< 0 when open; positive when stored clockwise
  /// Each span widens the extent by `TIGHT_TOLERANCE` again.
  void Minmax(Point& min, Point& max) const;
  /// The nearest vertex; INVALID_POINT and number 0 when there is none.
  Point NearToVertex(const Point& p, int& vertexNumber) const;
  /// The nearest point; the search ends at the first span within `TOLERANCE`. INVALID_POINT and 0 as above.
  Point Near(const Point& p, int& spanNumber) const;

  bool Reverse(bool isReversed);  ///< returns the FORMER value
  /// Turns the stored vertices round. IDs are reset.
  void Reverse();
  /// Drops vertices of straight runs that stay within `tolerance` of the line from the run's first vertex,
  /// and returns how many.
  int Reduce(double tolerance);
  /// Replaces the arcs from that radius up by chords; whether there were any.
  bool Split(double minimumRadius, double chordTolerance);
  bool operator==(const Kurve& k) const;

  /// Appends a new contour, which is the caller's, made by `OffsetMethod1`, and returns its code. Throws
  /// L"Requested Offsetting Method not available" unless the method is 0 or 1.
  int Offset(std::vector<Kurve*>& list, double offset, int direction, int method) const;
  /// The contour at distance `offset`, in direction 1 to the left for a positive offset, under the same
  /// matrix. Method 0 stops at the raw offset, 1 has its loops removed and the result checked. Returns the
  /// code of geometry/offset.h; with code 1 the target is not touched. Roll arcs have the ID ROLL_AROUND.
  /// Throws L"Illegal Call - 'this' must not be kOffset", and what `SetProperties` throws; the target is then
  /// as it was.
  int OffsetMethod1(Kurve& kOffset, double offset, int direction, int method) const;
  /// Moves all spans, extends neighbours to their crossing and leaves everything else: no roll arcs, no
  /// removal of loops. Arcs tangent to both neighbours are fitted in between them again, unless a neighbour
  /// is an arc too or, `byRadius`, an arc of smaller radius. The result is untransformed, the code always 1.
  /// Uses `scratchSpanPair`.
  int OffsetMethod2(Kurve& kOffset, double offset, int direction, bool byRadius) const;

 private:
  void DropVertices();
  void CopyVertices(const Kurve& k);
  void TakeVertices(Kurve& k);
  void Append(int type, const Point& p, const Point& pc);
  void Store(int vertexNumber, int type, const Point& p, const Point& pc, std::uint32_t ID);
  const SpanVertexBlock& BlockOf(int vertexNumber) const {
    return *blocks[static_cast<std::size_t>(vertexNumber) / SPANSTORAGE];
  }
  /// Requires: a stored vertex. Queries of whole contours live on these two, so they are inline.
  Point StoredPoint(int vertexNumber) const {
    const SpanVertexBlock& block = BlockOf(vertexNumber);
    const int i = vertexNumber % SPANSTORAGE;
    return {block.x[i], block.y[i]};
  }
  spVertex Stored(int vertexNumber) const {
    const SpanVertexBlock& block = BlockOf(vertexNumber);
    const int i = vertexNumber % SPANSTORAGE;
    return {block.type[i], Point(block.x[i], block.y[i]), Point(block.xc[i], block.yc[i]), block.ID[i]};
  }
  IndexWord StoredIndex(int vertexNumber) const;
  double UniformScale() const;
  void AppendChords(const Span& arc, int steps);
};

/// As the members, for a pointer that may be null: `Add` throws L"Kurve::Add - No Kurve Object", the others
/// their own out-of-range text.
bool Add(Kurve* k, int type, const Point& p, const Point& pc, bool addNullSpans);
void Replace(Kurve* k, int vertexNumber, int type, const Point& p, const Point& pc, std::uint32_t ID);
IndexWord GetIndex(const Kurve* k, int vertexNumber);
void ModifyIndex(Kurve* k, int vertexNumber, IndexWord value);

/// The part of `k` between two points. Span number 0 has the span found that is nearest to the point. A part
/// that ends before it starts runs over the end of the contour, with a line to its start if it is open.
Kurve Part(const Kurve& k, int startSpan, const Point& startPoint, int endSpan, const Point& endPoint);

}  // namespace geometry
