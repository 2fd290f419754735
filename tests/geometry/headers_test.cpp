#include <gtest/gtest.h>

#include <type_traits>

#include "geometry/contour_index.h"
#include "geometry/geometry.h"
#include "geometry/state.h"

/// The interface that other programs are compiled against. Most of it is checked by the compiler: a function
/// taken by a pointer of that type, a member of that kind. That each header is complete is checked by the
/// generated files, which include nothing else.
namespace geometry {
namespace {

using std::is_constructible_v;
using std::is_convertible_v;
using std::is_same_v;

// Process-wide values are plain variables, and the fixed ones constants.
static_assert(is_same_v<decltype(Units), std::int32_t>);
static_assert(is_same_v<decltype(TOLERANCE), double>);
static_assert(is_same_v<decltype(UNUSED_TOLERANCE_4), double>);
static_assert(is_same_v<decltype(COS_15), const double>);
static_assert(is_same_v<decltype(INVALID_POINT), const Point>);
static_assert(is_same_v<decltype(PLANE_YZ), const Plane>);
static_assert(is_same_v<MessageSink, void (*)(const std::wstring&, const std::wstring&, bool)>);

// Conversions that ask to be spelled out, and those that do not.
static_assert(!is_convertible_v<Vector3d, Vector2d> && is_constructible_v<Vector2d, Vector3d>);
static_assert(is_convertible_v<Vector2d, Vector3d>);
static_assert(!is_convertible_v<Point3d, Point> && is_constructible_v<Point, Point3d>);
static_assert(!is_convertible_v<Point, Point3d> && is_constructible_v<Point3d, Point, double>);
static_assert(!is_convertible_v<Span, CLine> && is_constructible_v<CLine, Span>);
static_assert(!is_convertible_v<Span, Circle> && is_constructible_v<Circle, Span>);
static_assert(!is_convertible_v<Span, Line> && is_constructible_v<Line, Span>);
static_assert(!is_convertible_v<Kurve, KurveEx> && is_constructible_v<KurveEx, Kurve>);
static_assert(!is_convertible_v<KurveEx, Kurve> && is_constructible_v<Kurve, KurveEx>);
static_assert(!is_convertible_v<const double (&)[16], Matrix> &&
              is_constructible_v<Matrix, const double (&)[16]>);

// Members have their order, since records are read member by member.
static_assert(offsetof(spVertex, type) < offsetof(spVertex, ID) &&
              offsetof(spVertex, ID) < offsetof(spVertex, p) &&
              offsetof(spVertex, p) < offsetof(spVertex, pc));
static_assert(offsetof(Span, p0) < offsetof(Span, p1) && offsetof(Span, p1) < offsetof(Span, dir) &&
              offsetof(Span, dir) < offsetof(Span, pc) && offsetof(Span, pc) < offsetof(Span, ID) &&
              offsetof(Span, ID) < offsetof(Span, vs) && offsetof(Span, vs) < offsetof(Span, ve) &&
              offsetof(Span, ve) < offsetof(Span, length) &&
              offsetof(Span, length) < offsetof(Span, radius) &&
              offsetof(Span, radius) < offsetof(Span, angle) &&
              offsetof(Span, angle) < offsetof(Span, NullSpan) &&
              offsetof(Span, NullSpan) < offsetof(Span, box) &&
              offsetof(Span, box) < offsetof(Span, index0) &&
              offsetof(Span, index0) < offsetof(Span, index1) &&
              offsetof(Span, index1) < offsetof(Span, propertiesSet));
static_assert(sizeof(SpanVertexBlock) ==
              32 * (sizeof(IndexWord) + 2 * sizeof(std::int32_t) + 4 * sizeof(double)));
static_assert(is_same_v<decltype(SpanPair::offset), Span>);

// No virtual operation but one destructor.
static_assert(!std::is_polymorphic_v<Matrix> && !std::is_polymorphic_v<Span> &&
              !std::is_polymorphic_v<Kurve>);
static_assert(std::has_virtual_destructor_v<KurveEx>);
static_assert(std::is_base_of_v<Matrix, Kurve>);
static_assert(is_same_v<decltype(KurveEx::flag), std::uint8_t>);
static_assert(is_same_v<decltype(SpanReplacement::replacement), std::unique_ptr<KurveEx>>);
static_assert(LINEAR == 0 && ACW == 1 && CW == -1 && SPANSTORAGE == 32);

template <class Function>
constexpr bool Is(Function) {
  return true;
}

static_assert(Is<double (*)(const Vector2d&, const Vector2d&)>(Angle));
static_assert(Is<double (*)(const Vector3d&, const Vector3d&)>(Angle));
static_assert(Is<bool (*)(const Vector2d&, const Vector2d&, double, double)>(IsOpposite));
static_assert(Is<double (*)(const Line&, const Line&)>(Dist));
static_assert(Is<double (*)(const Circle&, const Circle&)>(Dist));
static_assert(Is<void (Matrix::*)(double, double, const Vector3d&)>(&Matrix::Rotate));
static_assert(Is<void (Matrix::*)(double, const Vector3d&)>(&Matrix::Rotate));
static_assert(Is<bool (Plane::*)(const Plane&, const Plane&, Point3d&) const>(&Plane::Intof));
static_assert(Is<Point (Span::*)(const Point&, double&) const>(&Span::NearClamped));
static_assert(Is<void (Span::*)(Box&, bool) const>(&Span::Box));
static_assert(Is<int (Kurve::*)(int, Point&, Point&) const>(&Kurve::Get));
static_assert(Is<int (Kurve::*)(int, Point3d&, Point3d&) const>(&Kurve::Get));
static_assert(Is<int (Kurve::*)(int, Span&, bool, bool) const>(&Kurve::Get));
static_assert(Is<int (Kurve::*)(int, spVertex&) const>(&Kurve::Get));
static_assert(Is<Kurve& (Kurve::*)(const Matrix&)>(&Kurve::operator=));
static_assert(Is<bool (Kurve::*)(bool)>(&Kurve::Reverse));
static_assert(Is<void (Kurve::*)()>(&Kurve::Reverse));
static_assert(Is<bool (KurveEx::*)(int, Span&) const>(&KurveEx::Get));
static_assert(Is<bool (KurveEx::*)(std::size_t, Span&) const>(&KurveEx::Get));
static_assert(Is<bool (KurveEx::*)(int, spVertex&) const>(&KurveEx::Get));
static_assert(Is<bool (KurveEx::*)(double, double, bool)>(&KurveEx::Add));
static_assert(Is<void (KurveEx::*)(const KurveEx&, bool)>(&KurveEx::Add));
static_assert(
    Is<bool (KurveEx::*)(std::vector<SpanReplacement>&, bool, KurveEx&) const>(&KurveEx::ReplaceSpans));
static_assert(
    Is<int (KurveEx::*)(KurveEx&, double, int, std::uint32_t, double, bool) const>(&KurveEx::Offset));
static_assert(Is<std::unique_ptr<KurveEx> (KurveEx::*)(double, int) const>(&KurveEx::Offset));
static_assert(Is<Point (KurveEx::*)(const Point&, int&, double&) const>(&KurveEx::Near));
static_assert(Is<Point (*)(int, const CLine&, const Circle&, Point&)>(Intof));
static_assert(Is<int (*)(const Circle&, const Circle&, Point&, Point&)>(Intof));
static_assert(Is<int (*)(const Span&, const Span&, Point&, Point&, double*)>(Intof));
static_assert(Is<bool (*)(const Line&, const Line&, Point3d&)>(Intof));
static_assert(Is<Circle (*)(int, const CLine&, int, const CLine&, int, const CLine&)>(Tanto));
static_assert(Is<Circle (*)(int, int, const CLine&, int, const Circle&, double)>(Tanto));
static_assert(Is<int (*)(int, const Circle&, int, const Circle&, int, const Circle&, Circle*)>(Tanto));
static_assert(Is<CLine (*)(int, const Circle&, int, const Circle&)>(Tanto));
static_assert(Is<int (*)(const Point&, const CLine&, int, const Circle&, Circle*)>(Touching));

static_assert(Is<void (KurveEx::*)(std::FILE*, int) const>(&KurveEx::Write));
static_assert(Is<bool (KurveEx::*)(std::FILE*)>(&KurveEx::Read));
static_assert(Is<void (KurveEx::*)(std::FILE*) const>(&KurveEx::Print));
static_assert(Is<void (KurveEx::*)(std::FILE*, const char*) const>(&KurveEx::WriteSourceVertices));
static_assert(Is<void (KurveEx::*)(std::FILE*, const char*) const>(&KurveEx::WriteSourceSpans));
static_assert(Is<void (*)(std::FILE*, const spVertex&)>(Print));
static_assert(Is<void (*)(std::FILE*, const Span&)>(Print));
static_assert(is_constructible_v<XmlWriter, std::wstring, bool> &&
              is_constructible_v<XmlReader, std::wstring>);
static_assert(!std::is_nothrow_destructible_v<XmlWriter>);
static_assert(Is<void (XmlWriter::*)(const wchar_t*, double, bool)>(&XmlWriter::Attribute));
static_assert(Is<void (XmlWriter::*)(const wchar_t*, const wchar_t*)>(&XmlWriter::Attribute));
static_assert(Is<void (XmlWriter::*)(const wchar_t*, const Matrix&)>(&XmlWriter::Write));
static_assert(Is<bool (XmlReader::*)(const wchar_t*, std::wstring&)>(&XmlReader::Attribute));
static_assert(Is<bool (XmlReader::*)(const wchar_t*, double&, bool)>(&XmlReader::Attribute));
static_assert(Is<bool (XmlReader::*)(std::wstring&, KurveEx&)>(&XmlReader::Read));
static_assert(Is<std::wostream& (*)(std::wostream&, const wchar_t*, const CLine&)>(WriteDebug));
static_assert(Is<int (*)(const KurveEx&, const KurveEx&, KurveEx&, KurveEx&, bool)>(EqualiseSpanCount));
static_assert(Is<void (*)(const std::wstring&)>(SetDiagnosticPath));
static_assert(Is<bool (*)(const KurveEx&, const KurveEx&, KurveEx&, KurveEx&)>(EqualiseByID));
static_assert(Is<std::unique_ptr<KurveEx> (*)(const KurveEx&, const KurveEx&, KurveEx&)>(EqualiseByID));
static_assert(Is<bool (*)(const KurveEx&, const KurveEx&, Matrix*&, bool, int, bool, int, bool)>(SameShape));
static_assert(is_same_v<decltype(SpanInfo::hasPrevious), bool>);
static_assert(Is<int (*)(const CLine&, const CLine&, Span&, Span&)>(Biarc));
static_assert(Is<int (*)(Span*, Span*, Span*, double)>(ChangeRadius));
static_assert(is_same_v<decltype(ExtensionRecord::lastVertex), std::uint64_t>);
static_assert(Is<KurveEx (*)(double, const KurveEx&)>(TrimEndMirrored));
static_assert(Is<bool (*)(const KurveEx&, const Point&, const Point&, KurveEx&)>(Section));
static_assert(Is<bool (*)(const std::vector<ExtensionRecord>&, const KurveEx&, KurveEx&)>(Extend));
static_assert(Is<bool (*)(const KurveEx&, const Point&, double, int, KurveEx&)>(ExtendAt));

TEST(Headers, ReadAsTheirCallersWriteThem) {
  Kurve k;
  k.Start({0, 0});
  k.Add({4, 0});
  k.Add(CW, {4, 4}, {4, 2});
  const KurveEx ex(k);
  Span byNumber;
  Span byIndex;
  EXPECT_TRUE(ex.Get(1, byNumber));
  EXPECT_TRUE(ex.Get(std::size_t{0}, byIndex));
  EXPECT_TRUE(byNumber == byIndex);
  EXPECT_TRUE(ex.spans[1].OnSpan(ex.spans[1].Mid()));
}

}  // namespace
}  // namespace geometry
