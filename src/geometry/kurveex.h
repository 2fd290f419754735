#pragma once

#include "geometry/kurve.h"

namespace geometry {

/// A replacement for the span that ends at a vertex.
struct SpanReplacement {
  int vertexNumber;
  std::unique_ptr<KurveEx> replacement;
};

/// The working contour: resolved spans with running totals.
///
/// Shape     spans are numbered from 1 and vertices from 0; vertex v is the end of span v, vertex 0 the start
/// Units     lengths in the current unit
/// Totals    `perim` and `area` are kept up to date by every operation that changes spans; `area` is positive
///           clockwise, in reading order
/// Reversed  readings and index words follow it; adding and removing work on the end of storage
/// Errors    numbers out of range throw wide strings, and searches that say so std::runtime_error
class KurveEx {
 public:
  virtual ~KurveEx();

  std::vector<Span> spans;
  bool reversed = false;
  double perim = 0, area = 0;
  Point start;                       ///< its `ok` says whether the contour has a start
  IndexWord index0 = 0, index1 = 0;  ///< the words of vertex 0
  std::uint8_t flag = 1;             ///< unused; part of the layout

  KurveEx();
  KurveEx(const KurveEx& k);
  KurveEx& operator=(const KurveEx& k);
  /// Moves leave `k` without spans but otherwise as it was; it may only be cleared, started or assigned to.
  KurveEx(KurveEx&& k) noexcept;
  KurveEx& operator=(KurveEx&& k) noexcept;
  /// Takes the spans of `k` in reading order under its matrix. Each gets the ID of the vertex where it
  /// begins.
  explicit KurveEx(const Kurve& k);
  KurveEx(const Point& c, double r, int dir);  ///< runs `SetAsCircle`

  void Clear();
  int SpanCount() const { return static_cast<int>(spans.size()); }
  void Start(const Point& p);  ///< clears the contour first
  /// Appends a copy that begins at the end of the contour; the centre of an arc is moved onto the bisector of
  /// its chord. Without `addNullSpans` a null span is refused with false.
  bool Add(const Span& span, bool addNullSpans = true);
  /// Appends the spans of `k` in its reading order. Throws L"Adding 2 Kurves - looses Index0" (or Index1)
  /// when both words at the joint are set and differ.
  void Add(const KurveEx& k, bool addNullSpans = true);
  /// Append a span that ends at a vertex, or start the contour there if it has no start.
  bool Add(int type, const Point& p, const Point& pc, bool addNullSpans = true);
  bool Add(const spVertex& v, bool addNullSpans = true);
  bool Add(double x, double y, bool addNullSpans = true);
  void AddNullSpan();  ///< Throws L"Cannot add Nullspan if no start".
  /// Inserts a span before the first one, which then begins at the end of the new span.
  bool AddAtStart(const Span& span, bool addNullSpans = true);

  /// Set and read the index words of a vertex. They throw L"KurveEx::AddIndex0 - vertexNumber out of range"
  /// (or AddIndex1, or GetIndex for both readings).
  void AddIndex0(int vertexNumber, IndexWord value);
  void AddIndex1(int vertexNumber, IndexWord value);
  IndexWord GetIndex0(int vertexNumber) const;
  IndexWord GetIndex1(int vertexNumber) const;

  /// Replaces the first vertex (its point alone) or the last. Throws L"KurveEx::Replace reversed - not
  /// coded", L"Kurve::Replace - vertexNumber out of range" for any other number, and what `SetProperties`
  /// throws; the contour then stays as it was.
  void Replace(int vertexNumber, int type, const Point& p, const Point& pc, std::uint32_t ID = UNMARKED);
  void RemoveFirst();  ///< `start` is not moved
  void RemoveLast();

  bool Get(int spanNumber, Span& span) const;     ///< from 1; false out of range
  bool Get(std::size_t index, Span& span) const;  ///< from 0
  bool Get(int vertexNumber, spVertex& v) const;  ///< from 0 to the span count
  Point Start() const;                            ///< INVALID_POINT when nothing was started
  Point End() const;
  /// The first and the last span that has a length; false when all are null.
  bool FirstNonNull(Span& span) const;
  bool LastNonNull(Span& span) const;
  Point FirstNonNullPoint() const;  ///< its start, or INVALID_POINT
  Point LastNonNullPoint() const;   ///< its end, or INVALID_POINT
  /// The same spans; they throw std::runtime_error "Kurve ist empty." or "Kurve has no non-null spans".
  Span FirstNonNullSpan() const;
  Span LastNonNullSpan() const;

  bool Closed() const;            ///< whether the ends are nearer than `CLOSED_TOLERANCE`
  int Direction() const;          ///< 0 when open, -1 for a positive area, else 1
  bool Reverse(bool isReversed);  ///< sets `reversed` and returns its NEW value
  /// A copy whose order of storage is reversed.
  KurveEx ReversedCopy() const;
  /// Scales the spans, and multiplies both totals by `f`, the area too.
  void Scale(double f);
  void Transform(const Matrix& m);  ///< leaves the totals as they were
  bool operator==(const KurveEx& k) const;
  /// Whether the contour is closed and all its spans with a length are arcs about one centre in one
  /// direction.
  bool IsFullCircle() const;
  /// Becomes the circle, two half circles from (centre.x + radius, centre.y), all of ID FULL_CIRCLE_KURVE.
  void SetAsCircle(int dir, const Point& centre, double radius);
  /// The box around the boxes of the spans.
  geometry::Box Box() const;
  /// Numbers the spans by their IDs. With `readingOrder` it works on copies, so nothing changes.
  void Identify(int firstID, int step, bool readingOrder = false);
  /// The largest |step - 1| of the steps between the IDs of neighbouring vertices, without the steps 1 and
  /// -1.
  std::uint32_t LargestIDGap() const;
  /// Drops vertices on straight lines and between arcs about one centre, and returns their number. A vertex
  /// is on a straight line when it alone is within `tolerance` of the line between its neighbours, so that
  /// errors add up along a run.
  int Reduce(double tolerance);
  /// The point at fraction `f` of the perimeter, the number of its span and the fraction there.
  Point AtFraction(double f, int& spanNumber, double& localFraction) const;
  /// Whether both matrices move all vertices to the same points.
  bool SameUnderTransforms(const Matrix& a, const Matrix& b) const;
  /// Goes `d` along the contour from `p` on that span, at most once round a closed one. Returns the number of
  /// the span reached and gives the fraction there; -1 and -1.0 beyond the ends.
  int FindAlong(int spanNumber, const Point& p, double d, double& fraction) const;
  /// Makes the contour with spans replaced; entries are sorted, and consumed from the front. Where a
  /// replacement meets its neighbour, `keepEnd` keeps the end of the span before, otherwise the start of the
  /// span after is kept. Returns false when an entry names a span that does not exist, or one that an earlier
  /// entry named; the other entries apply nevertheless. Entries after the last span remain in the list.
  bool ReplaceSpans(std::vector<SpanReplacement>& list, bool keepEnd, KurveEx& out) const;
  /// Makes the contour that begins at `p` on that span: a closed one goes all the way round, an open one is
  /// cut. False for a span that does not exist.
  bool ReplaceStart(int spanNumber, const Point& p, KurveEx& out) const;

  /// Makes the contour at distance `offset`. In direction 1 a positive offset goes to the left, in direction
  /// -1 to the right.
  ///
  /// Flags   0 stops at the raw offset; any other value removes its loops, unless `keepLoops`, and checks the
  ///         result; UNMARKED (bit 28) also removes the small roll arcs, see `RemoveRollArounds`
  /// IDs     a span has its number; the roll arc before span i has i | ROLL_AROUND, and a roll arc in place
  ///         of a null span the number of that span alone
  /// Errors  the result is the code of geometry/offset.h; an offset below `TOLERANCE` copies. Throws
  ///         L"Illegal Call - 'this' must not be kOffset", and what `SetProperties` throws; `kOffset` then
  ///         stays as it was
  int Offset(KurveEx& kOffset, double offset, int direction, std::uint32_t flags, double rollAngle,
             bool keepLoops = false) const;
  /// The same, as a new contour; null for every code but 0.
  std::unique_ptr<KurveEx> Offset(double offset, int direction, std::uint32_t flags, double rollAngle) const;
  std::unique_ptr<KurveEx> Offset(double offset, int direction) const;
  /// Replaces roll arcs by the crossing of their neighbours. A roll arc stays when it sweeps more than a full
  /// turn less `rollAngle` (degrees), next to another roll arc, when its neighbours do not cross, and when it
  /// is tangent to one of them, as it was when it was made. Returns false, and leaves `out`, for a contour
  /// without roll arcs.
  bool RemoveRollArounds(double rollAngle, KurveEx& out) const;

  /// The number of turns of the contour, lines only, round `p` anticlockwise; the lower end of a line belongs
  /// to it, and the upper end does not. Throws L"No Spans inside!" and
  /// L"Arc span not allowed in windingNumber".
  int windingNumber(const Point& p) const;
  int Inside(const Point& p) const;  ///< 1 outside, 0 inside
  /// The nearest point, the number of its span and its distance along that span; INVALID_POINT and 0 for a
  /// contour without spans.
  Point Near(const Point& p, int& spanNumber, double& t) const;

  /// The text forms, docs/formats/geometry-text.md. `Read` returns false at the end of the stream.
  void Write(std::FILE* stream, int number) const;
  bool Read(std::FILE* stream);
  void Print(std::FILE* stream) const;
  void WriteSourceVertices(std::FILE* stream, const char* name) const;
  void WriteSourceSpans(std::FILE* stream, const char* name) const;

 private:
  using Word = IndexWord KurveEx::*;
  using SpanWord = IndexWord Span::*;

  std::size_t StoredVertex(int vertexNumber, const wchar_t* refusal) const;
  const IndexWord& WordAt(int vertexNumber, Word word, SpanWord spanWord, const wchar_t* refusal) const;
  IndexWord& WordAt(int vertexNumber, Word word, SpanWord spanWord, const wchar_t* refusal);
  Span ReadSpan(std::size_t index) const;
  Point StoredEnd() const;
  void CountIn(const Span& span, double sign);
  void SetStartPoint(const Point& p);
  void SetEndVertex(int type, const Point& p, const Point& pc, std::uint32_t ID);
  void MoveEnd(const Point& p);
  void MoveStart(const Point& p);
  void AddJoined(const Span& next, bool keepEnd);
  void JoinSeam(bool keepEnd);
  int ReduceCircle();
};

void Print(std::FILE* stream, const spVertex& v);
void Print(std::FILE* stream, const Span& s);

/// The members, for a pointer that may be null; a null pointer throws the text for a number out of range.
void AddIndex0(KurveEx* k, int vertexNumber, IndexWord value);
void AddIndex1(KurveEx* k, int vertexNumber, IndexWord value);
IndexWord GetIndex0(const KurveEx* k, int vertexNumber);
IndexWord GetIndex1(const KurveEx* k, int vertexNumber);

/// Sectioning: a contour and a partner with equally many spans get a vertex at the same place.
///
/// Place   fraction `f` of the first contour's perimeter. The partner is cut at the same fraction of its
///         span, at the same distance along it, or at fraction `f` of its own perimeter. A place beyond the
///         partner's span is on the line or circle of that span
/// Errors  the result is the number of the new vertex, or 0, with copies, when that place does not exist.
///         Contours of unequal counts give 0 and empty results
int SectionByFraction(const KurveEx& a, const KurveEx& b, double f, KurveEx& outA, KurveEx& outB);
int SectionByDistance(const KurveEx& a, const KurveEx& b, double f, KurveEx& outA, KurveEx& outB);
int SectionByOwnFraction(const KurveEx& a, const KurveEx& b, double f, KurveEx& outA, KurveEx& outB);
/// The same at the point `p` of the first contour; -1 and copies when `p` is not on it. At a vertex the
/// result is its number, with copies.
int SectionAtPoint(const KurveEx& a, const KurveEx& b, const Point& p, KurveEx& outA, KurveEx& outB);
/// The same at distance `d` after a vertex of the first contour.
int SectionAtVertex(const KurveEx& a, const KurveEx& b, int vertexNumber, double d, KurveEx& outA,
                    KurveEx& outB);

/// An ellipse of tangent arcs, moved by `m`: a biarc, geometry/biarc.h, for each of 36 steps.
KurveEx EllipseToSpans(const Point& centre, double radiusX, double radiusY, const Matrix& m);

}  // namespace geometry
