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

/// The compact contour: vertices in blocks, which are read as spans on demand.
///
/// Shape     vertices are numbered from 0 and spans from 1; span i runs from vertex i-1 to vertex i. Vertex 0
///           has type 0 and no centre
/// Units     lengths in the current unit
/// Matrix    the contour is stored untransformed; the matrix that it derives from applies on reading, when
///           the call says so
/// Reversed  changes the order of reading only; writes and `Add` work in the order of storage
/// Owns      its blocks; copies are deep
/// Errors    numbers out of range, null objects and differential scales throw wide strings, and the contour
///           stays as it was
class Kurve : public Matrix {
 public:
  std::vector<SpanVertexBlock*> blocks;
  bool started = false;
  std::int32_t nVertices = 0;
  bool reversed = false;

  Kurve();
  Kurve(const Kurve& k);
  /// Moves leave `k` empty.
  Kurve(Kurve&& k) noexcept;
  Kurve& operator=(Kurve&& k) noexcept;
  /// Takes the spans as they are stored, null spans included, and the same `reversed`.
  explicit Kurve(const KurveEx& k);
  /// The circle about `c` in direction `dir`, two half circles from (c.x + r, c.y), all of ID
  /// FULL_CIRCLE_KURVE.
  Kurve(const Point& c, double r, int dir);
  ~Kurve();
  Kurve& operator=(const Kurve& k);
  Kurve& operator=(const Matrix& m);  ///< the matrix alone

  /// Drops the vertices, the start and `reversed`; the matrix stays.
  void Clear();
  /// Drops all vertices and starts at `p`.
  void Start(const Point& p);
  /// Appends a vertex, or starts there. One within `TOLERANCE` of the last is refused with false, or, with
  /// `addNullSpans`, stored as a line.
  bool Add(int type, const Point& p, const Point& pc, bool addNullSpans = true);
  bool Add(const spVertex& v, bool addNullSpans = true);
  bool Add(const Span& s, bool addNullSpans = true);
  bool Add(const Point& p, bool addNullSpans = true);
  /// Appends the spans of `k`, transformed into the coordinates of this contour, after a line to the start of
  /// `k` if that is elsewhere. A contour without spans adds nothing.
  void Add(const Kurve& k, bool addNullSpans = true);
  /// Appends a span without length. Throws L"Invalid attempt to add null span - no start".
  void AddNullSpan();
  /// Overwrites a stored vertex. Throws L"Kurve::Replace - vertexNumber out of range" for a number above
  /// `nVertices`. That number itself is accepted: it writes the slot after the last vertex if storage has
  /// one, and nothing otherwise.
  void Replace(int vertexNumber, int type, const Point& p, const Point& pc, std::uint32_t ID = UNMARKED);

  /// Read a vertex and return its type. They throw L"Kurve::Get - vertexNumber out of range". For vertex 0 of
  /// a reversed contour the centre stays as it was.
  int Get(int vertexNumber, Point& p, Point& pc) const;
  int Get(int vertexNumber, Point3d& p, Point3d& pc) const;
  int Get(int vertexNumber, spVertex& v) const;
  /// Reads a span and returns its `dir`, or -99 when the contour has less than two vertices. Its caches are
  /// stale, unless `returnProperties` asks for them or a transform has set them. Its index words stay as they
  /// were.
  int Get(int spanNumber, Span& span, bool returnProperties = false, bool transform = false) const;
  /// Reads a span as it is stored, whatever `reversed` says.
  int GetStored(int spanNumber, Span& span) const;
  /// Reads the ID of a vertex. Reversed reading takes that of the mirrored vertex, which owns the next span,
  /// and so is one span off.
  std::uint32_t GetSpanID(int vertexNumber) const;
  /// Reads the index word of a vertex. Throws L"Kurve::GetIndex - vertexNumber out of range".
  IndexWord GetIndex(int vertexNumber) const;
  /// Sets the index word of a stored vertex. Throws L"Kurve::ModifyIndex - vertexNumber out of range";
  /// `nVertices` is accepted as in `Replace`.
  void ModifyIndex(int vertexNumber, IndexWord value);
  int SpanCount() const { return nVertices > 0 ? nVertices - 1 : 0; }

  /// Whether the first and the last vertex are the same point.
  bool Closed() const;
  /// Length, area and extent under the matrix. All throw L"Differential Scale not allowed for this method".
  double Perim() const;
  double Area() const;  ///< 0 when open; positive when stored clockwise
  /// The corners of the extent, which every span widens by `TIGHT_TOLERANCE` again.
  void Minmax(Point& min, Point& max) const;
  /// The nearest vertex; INVALID_POINT and number 0 for a contour without vertices.
  Point NearToVertex(const Point& p, int& vertexNumber) const;
  /// The nearest point; the search ends at the first span within `TOLERANCE`. INVALID_POINT and 0 for a
  /// contour without spans.
  Point Near(const Point& p, int& spanNumber) const;

  bool Reverse(bool isReversed);  ///< sets `reversed` and returns its FORMER value
  /// Reverses the order of the stored vertices. IDs are reset.
  void Reverse();
  /// Drops the vertices of straight runs that stay within `tolerance` of the line from the first vertex of
  /// their run, and returns their number.
  int Reduce(double tolerance);
  /// Replaces arcs of at least that radius by chords. Returns whether there were any.
  bool Split(double minimumRadius, double chordTolerance);
  /// Compares the vertices in reading order, untransformed.
  bool operator==(const Kurve& k) const;

  /// Appends a new contour, which is the caller's, made by `OffsetMethod1`, and returns its code. Throws
  /// L"Requested Offsetting Method not available" unless the method is 0 or 1.
  int Offset(std::vector<Kurve*>& list, double offset, int direction, int method) const;
  /// Makes the contour at distance `offset`, under the same matrix. In direction 1 a positive offset goes to
  /// the left. Method 0 stops at the raw offset; method 1 removes its loops and checks the result. Roll arcs
  /// have the ID ROLL_AROUND. Returns the code of geometry/offset.h; with code 1 `kOffset` stays as it was.
  /// Throws L"Illegal Call - 'this' must not be kOffset", and what `SetProperties` throws; `kOffset` then
  /// stays as it was.
  int OffsetMethod1(Kurve& kOffset, double offset, int direction, int method) const;
  /// Moves all spans and extends neighbours to their crossing, without roll arcs and without removal of
  /// loops. Arcs tangent to both neighbours are fitted between them again, unless a neighbour is an arc too
  /// or, `byRadius`, an arc of smaller radius. The result is untransformed, and the code is always 1. Uses
  /// `scratchSpanPair`.
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

/// The members, for a pointer that may be null: `Add` then throws L"Kurve::Add - No Kurve Object", the others
/// throw their own out-of-range text.
bool Add(Kurve* k, int type, const Point& p, const Point& pc, bool addNullSpans);
void Replace(Kurve* k, int vertexNumber, int type, const Point& p, const Point& pc, std::uint32_t ID);
IndexWord GetIndex(const Kurve* k, int vertexNumber);
void ModifyIndex(Kurve* k, int vertexNumber, IndexWord value);

/// The part of `k` between two points. With span number 0 the span nearest to the point is looked for. A part
/// that ends before it starts runs over the end of the contour, with a line to the contour's start if it is
/// open.
Kurve Part(const Kurve& k, int startSpan, const Point& startPoint, int endSpan, const Point& endPoint);

}  // namespace geometry
