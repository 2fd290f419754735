#pragma once

#include "geometry/kurve.h"

namespace geometry {

/// What stands in for the span that ends at a vertex.
struct SpanReplacement {
  int vertexNumber;
  std::unique_ptr<KurveEx> replacement;
};

/// The working contour: resolved spans with running totals.
///
/// Shape     spans from 1, vertices from 0; vertex v is the end of span v, vertex 0 the start
/// Totals    `perim` and `area` are kept by every operation that changes spans;
///           `area` is positive clockwise and counts in reading order
/// Reversed  is honoured by readings and index words; adding and removing work on
///           the stored end
/// Errors    wide strings for numbers out of range, std::runtime_error for the
///           searches that say so
class KurveEx {
 public:
  virtual ~KurveEx();

  std::vector<Span> spans;
  bool reversed = false;
  double perim = 0, area = 0;
  Point start;                       ///< `ok` tells whether a start was given
  IndexWord index0 = 0, index1 = 0;  ///< the words of vertex 0
  std::uint8_t flag = 1;             ///< read by nobody

  KurveEx();
  KurveEx(const KurveEx& k);
  KurveEx& operator=(const KurveEx& k);
  /// These leave `k` without spans but otherwise as it was; only clear it, start it or assign to it.
  KurveEx(KurveEx&& k) noexcept;
  KurveEx& operator=(KurveEx&& k) noexcept;
  /// The spans of `k` in reading order under its matrix. Each takes the ID of the vertex where it begins.
  explicit KurveEx(const Kurve& k);
  KurveEx(const Point& c, double r, int dir);  ///< as `SetAsCircle`

  void Clear();
  int SpanCount() const { return static_cast<int>(spans.size()); }
  void Start(const Point& p);  ///< clears everything before
  /// Appends a copy that begins where the contour ends; the centre of an arc is moved onto the bisector of
  /// its chord. A null span is refused with false unless wanted.
  bool Add(const Span& span, bool addNullSpans = true);
  /// Throws L"Adding 2 Kurves - looses Index0" (or Index1) when both words at the joint are set and differ.
  void Add(const KurveEx& k, bool addNullSpans = true);
  /// These start the contour if it has no start.
  bool Add(int type, const Point& p, const Point& pc, bool addNullSpans = true);
  bool Add(const spVertex& v, bool addNullSpans = true);
  bool Add(double x, double y, bool addNullSpans = true);
  void AddNullSpan();  ///< Throws L"Cannot add Nullspan if no start".
  /// Puts a span before the first one, which then begins at its end.
  bool AddAtStart(const Span& span, bool addNullSpans = true);

  /// Throw L"KurveEx::AddIndex0 - vertexNumber out of range" (AddIndex1; GetIndex for both readings).
  void AddIndex0(int vertexNumber, IndexWord value);
  void AddIndex1(int vertexNumber, IndexWord value);
  IndexWord GetIndex0(int vertexNumber) const;
  IndexWord GetIndex1(int vertexNumber) const;

  /// Replaces the first vertex (its point alone) or the last. Throws L"KurveEx::Replace reversed - not
  /// coded", L"Kurve::Replace - vertexNumber out of range" for any other number, and what `SetProperties`
  /// throws; the contour then is as it was.
  void Replace(int vertexNumber, int type, const Point& p, const Point& pc, std::uint32_t ID = UNMARKED);
  void RemoveFirst();  ///< `start` is not moved
  void RemoveLast();

  bool Get(int spanNumber, Span& span) const;     ///< from 1; false out of range
  bool Get(std::size_t index, Span& span) const;  ///< from 0
  bool Get(int vertexNumber, spVertex& v) const;  ///< from 0 to the span count
  Point Start() const;                            ///< INVALID_POINT when nothing was started
  Point End() const;
  bool FirstNonNull(Span& span) const;
  bool LastNonNull(Span& span) const;
  Point FirstNonNullPoint() const;  ///< its start, or INVALID_POINT
  Point LastNonNullPoint() const;   ///< its end, or INVALID_POINT
  /// Throw std::runtime_error "Kurve ist empty." or "Kurve has no non-null spans".
  Span FirstNonNullSpan() const;
  Span LastNonNullSpan() const;

  bool Closed() const;            ///< ends nearer than `CLOSED_TOLERANCE`
  int Direction() const;          ///< 0 when open, -1 for a positive area, else 1
  bool Reverse(bool isReversed);  ///< returns the NEW value
  KurveEx ReversedCopy() const;
  /// Multiplies both totals by `f`, the area too.
  void Scale(double f);
  void Transform(const Matrix& m);  ///< leaves the totals
  bool operator==(const KurveEx& k) const;
  bool IsFullCircle() const;
  void SetAsCircle(int dir, const Point& centre, double radius);
  geometry::Box Box() const;
  /// Numbers the IDs of the spans. In reading order it works on copies, so nothing changes.
  void Identify(int firstID, int step, bool readingOrder = false);
  std::uint32_t LargestIDGap() const;
  /// Drops vertices on straight lines, within `tolerance` of the line over each alone, and between arcs about
  /// one centre; returns how many. Errors add up along a run.
  int Reduce(double tolerance);
  /// The point at fraction `f` of the perimeter, the number of its span and the fraction there.
  Point AtFraction(double f, int& spanNumber, double& localFraction) const;
  bool SameUnderTransforms(const Matrix& a, const Matrix& b) const;
  /// Goes `d` along the contour from `p` on that span, once round a closed one: span number and fraction, or
  /// -1 and -1.0.
  int FindAlong(int spanNumber, const Point& p, double d, double& fraction) const;
  /// The contour with spans replaced; entries are sorted, and consumed from the front. Where a replacement
  /// meets its neighbour, with `keepEnd` the end of the span before stays, otherwise the start of the span
  /// after. False when an entry names no span, or one that an entry before it named; the others count
  /// nevertheless. Entries behind the last span remain in the list.
  bool ReplaceSpans(std::vector<SpanReplacement>& list, bool keepEnd, KurveEx& out) const;
  /// The contour beginning at `p` on that span: a closed one goes all the way round, an open one is cut.
  bool ReplaceStart(int spanNumber, const Point& p, KurveEx& out) const;

  /// The contour at distance `offset`, in direction 1 to the left for a positive offset, in direction -1 to
  /// the right. `flags` 0 stops at the raw offset; any other value has its loops removed, unless `keepLoops`,
  /// and the result checked; UNMARKED (bit 28) also has the small roll arcs removed, see below. Returns the
  /// code of geometry/offset.h. An offset below `TOLERANCE` copies.
  ///
  /// A span keeps its number as ID; the roll arc before span i has i | ROLL_AROUND, and a roll arc in the
  /// place of a null span the number of that span alone.
  ///
  /// Throws L"Illegal Call - 'this' must not be kOffset", and what `SetProperties` throws; `kOffset` is then
  /// as it was.
  int Offset(KurveEx& kOffset, double offset, int direction, std::uint32_t flags, double rollAngle,
             bool keepLoops = false) const;
  /// The same as a new contour; null for every code but 0.
  std::unique_ptr<KurveEx> Offset(double offset, int direction, std::uint32_t flags, double rollAngle) const;
  std::unique_ptr<KurveEx> Offset(double offset, int direction) const;
  /// Replaces roll arcs by the crossing of their neighbours; false, and nothing done, without roll arcs. An
  /// arc stays when it sweeps more than a full turn less `rollAngle` (degrees), next to another roll arc,
  /// where the neighbours do not cross, and, as it was made for that, where it is tangent to one of them.
  bool RemoveRollArounds(double rollAngle, KurveEx& out) const;

  /// How often the contour, lines only, goes round `p` anticlockwise; lower ends of spans count, upper ones
  /// do not. Throws L"No Spans inside!" and L"Arc span not allowed in windingNumber".
  int windingNumber(const Point& p) const;
  int Inside(const Point& p) const;  ///< 1 outside, 0 inside
  /// The nearest point, the number of its span (0: none) and its distance along that span.
  Point Near(const Point& p, int& spanNumber, double& t) const;

  // Text forms.
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

/// As the members, for a pointer that may be null, which is out of range.
void AddIndex0(KurveEx* k, int vertexNumber, IndexWord value);
void AddIndex1(KurveEx* k, int vertexNumber, IndexWord value);
IndexWord GetIndex0(const KurveEx* k, int vertexNumber);
IndexWord GetIndex1(const KurveEx* k, int vertexNumber);

/// Sectioning: a contour and a partner of as many spans get a vertex at the same place. They return the
/// number of that vertex, or 0 and copies when there is no such place; contours of unequal counts give 0 and
/// nothing.
///
/// At fraction `f` of the first contour's perimeter; the partner at the same fraction of the span, at the
/// same distance along it, or at fraction `f` of its own perimeter. A place beyond the partner's span
/// is taken as it is, on the line or circle of that span.
int SectionByFraction(const KurveEx& a, const KurveEx& b, double f, KurveEx& outA, KurveEx& outB);
int SectionByDistance(const KurveEx& a, const KurveEx& b, double f, KurveEx& outA, KurveEx& outB);
int SectionByOwnFraction(const KurveEx& a, const KurveEx& b, double f, KurveEx& outA, KurveEx& outB);
/// At the point `p` of the first contour; -1 and copies when it is not on it. At a vertex: its number,
/// copies.
int SectionAtPoint(const KurveEx& a, const KurveEx& b, const Point& p, KurveEx& outA, KurveEx& outB);
/// At distance `d` behind a vertex of the first contour.
int SectionAtVertex(const KurveEx& a, const KurveEx& b, int vertexNumber, double d, KurveEx& outA,
                    KurveEx& outB);

/// An ellipse of tangent arcs, two for each of 36 steps.
KurveEx EllipseToSpans(const Point& centre, double radiusX, double radiusY, const Matrix& m);

}  // namespace geometry
