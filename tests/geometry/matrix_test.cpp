#include "geometry/matrix.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <vector>

#include "geometry/elements.h"
#include "geometry/support.h"

namespace geometry {
namespace {

using testing::kNaN;
using testing::kPi;
using testing::Random;
using testing::ThrownText;
using testing::UnitsGuard;

void ExpectElements(const Matrix& m, const double (&expected)[16]) {
  for (int i = 0; i < 16; ++i) EXPECT_NEAR(m.e[i], expected[i], 1e-12) << "element " << i;
}

const double kIdentity[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

TEST(Matrix, BeginsAsTheIdentity) {
  Matrix m;
  ExpectElements(m, kIdentity);
  EXPECT_TRUE(m.unit);
  EXPECT_FALSE(m.mirrored);
  m.Scale(-2, 1, 1);
  m.Unit();
  ExpectElements(m, kIdentity);
  EXPECT_TRUE(m.unit);
  EXPECT_FALSE(m.mirrored);
}

TEST(Matrix, FromElementsComputesItsFlags) {
  EXPECT_TRUE(Matrix(kIdentity).unit);
  const double mirror[16] = {-1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
  const Matrix m(mirror);
  EXPECT_FALSE(m.unit);
  EXPECT_TRUE(m.mirrored);
  ExpectElements(m, mirror);
}

TEST(Matrix, CopiesTakeTheFlagsAsTheyAre) {
  Matrix m;
  m.unit = false;
  m.mirrored = true;
  const Matrix copy(m);
  EXPECT_FALSE(copy.unit);
  EXPECT_TRUE(copy.mirrored);
  Matrix assigned;
  assigned = m;
  EXPECT_FALSE(assigned.unit);
  EXPECT_TRUE(assigned.mirrored);
}

TEST(Matrix, LaterOperationsActAfterEarlierOnes) {
  Matrix m;
  m.Translate(1, 0);
  m.Rotate(1, 0, 3);
  EXPECT_TRUE(m.Transform(Point3d(1, 0, 0)) == Point3d(0, 2, 0)) << "moved, then turned";
  Matrix scale;
  scale.Scale(2, 3, 4);
  m.Multiply(scale);
  EXPECT_TRUE(m.Transform(Point3d(1, 0, 1)) == Point3d(0, 6, 4));
}

TEST(Matrix, MultiplyRecomputesBothFlags) {
  Matrix mirror;
  mirror.Scale(1, -1, 1);
  EXPECT_TRUE(mirror.mirrored);
  EXPECT_FALSE(mirror.unit);
  mirror.Multiply(mirror);
  EXPECT_TRUE(mirror.unit);
  EXPECT_FALSE(mirror.mirrored);
}

TEST(Matrix, TranslateClearsUnitEvenForNothing) {
  Matrix m;
  m.Translate(0, 0, 0);
  EXPECT_FALSE(m.unit);
  EXPECT_TRUE(m.IsUnit());
  m.Scale(1, 1, -1);
  m.Translate(1, 2, 3);
  EXPECT_TRUE(m.mirrored) << "a move leaves it";
  EXPECT_TRUE(m.GetTranslation() == Vector3d(1, 2, 3));
}

TEST(Matrix, RotatesAboutTheAxes) {
  const double s = std::sin(0.3);
  const double c = std::cos(0.3);
  Matrix x;
  Matrix y;
  Matrix z;
  Matrix none;
  x.Rotate(0.3, 1);
  y.Rotate(0.3, 2);
  z.Rotate(0.3, 3);
  none.Rotate(0.3, 4);
  ExpectElements(x, {1, 0, 0, 0, 0, c, -s, 0, 0, s, c, 0, 0, 0, 0, 1});
  ExpectElements(y, {c, 0, s, 0, 0, 1, 0, 0, -s, 0, c, 0, 0, 0, 0, 1});
  ExpectElements(z, {c, -s, 0, 0, s, c, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
  EXPECT_TRUE(none.unit);
}

TEST(Matrix, RotatesAboutAVector) {
  for (int axis = 1; axis <= 3; ++axis) {
    Matrix byNumber;
    Matrix byVector;
    byNumber.Rotate(0.7, axis);
    byVector.Rotate(0.7, Vector3d(axis == 1, axis == 2, axis == 3));
    EXPECT_TRUE(byNumber == byVector);
  }
  // A third of a turn about the space diagonal takes x to y, y to z, z to x.
  Matrix third;
  const double r = 1 / std::sqrt(3.0);
  third.Rotate(2 * kPi / 3, Vector3d(r, r, r));
  EXPECT_TRUE(third.Transform(Point3d(1, 2, 3)) == Point3d(3, 1, 2));
}

TEST(Matrix, ScaleTranslationTouchesTheMoveAlone) {
  Matrix m;
  m.Translate(1, 2, 3);
  m.ScaleTranslation(0);
  EXPECT_TRUE(m.unit);
  m.Scale(2);
  m.Translate(1, 2, 3);
  m.ScaleTranslation(10);
  ExpectElements(m, {2, 0, 0, 10, 0, 2, 0, 20, 0, 0, 2, 30, 0, 0, 0, 1});
  EXPECT_FALSE(m.unit);
}

TEST(Matrix, IsUnitAllowsForRounding) {
  Matrix m;
  m.e[0] = 1 + 5e-13;
  m.e[7] = -9e-13;
  EXPECT_TRUE(m.IsUnit());
  for (int i = 0; i < 16; ++i) {
    Matrix off;
    off.e[i] += 1.1e-12;
    EXPECT_FALSE(off.IsUnit()) << i;
    EXPECT_FALSE(off.unit);
  }
  m.e[0] = kNaN;
  EXPECT_FALSE(m.IsUnit());
}

TEST(Matrix, IsUnitClearsMirroredOnlyOnSuccess) {
  Matrix m;
  m.mirrored = true;
  EXPECT_TRUE(m.IsUnit());
  EXPECT_FALSE(m.mirrored);
  m.mirrored = true;
  m.e[3] = 5;
  EXPECT_FALSE(m.IsUnit());
  EXPECT_TRUE(m.mirrored);
}

TEST(Matrix, IsMirroredIsTheSignOfTheDeterminant) {
  Matrix m;
  m.e[0] = -1;
  EXPECT_FALSE(m.IsMirrored()) << "the flag unit is still set";
  m.unit = false;
  EXPECT_TRUE(m.IsMirrored());
  const double swap[16] = {0, 1, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
  EXPECT_TRUE(Matrix(swap).mirrored);
  const double cycle[16] = {0, 1, 0, 0, 0, 0, 1, 0, 1, 0, 0, 0, 0, 0, 0, 1};
  EXPECT_FALSE(Matrix(cycle).mirrored);
}

TEST(Matrix, TransformsInPlaceAndSkipsTheIdentity) {
  Matrix m;
  m.e[3] = 100;
  double p[3] = {1, 2, 3};
  m.Transform(p, p);
  EXPECT_EQ(p[0], 1) << "flagged unit";
  m.unit = false;
  m.Transform(p, p);
  EXPECT_EQ(p[0], 101);
  EXPECT_EQ(p[2], 3);
  m.Rotate(1, 0, 3);
  double x = 1;
  double y = 2;
  m.Transform2d(x, y, x, y);
  EXPECT_EQ(x, -2);
  EXPECT_EQ(y, 101);
}

TEST(Matrix, ColumnsAreReadAndWrittenInOnePlace) {
  Matrix m;
  m.Scale(1, 1, -1);
  m.SetColumn(0, Vector3d(1, 2, 3));
  m.SetColumn(1, Vector3d(4, 5, 6));
  m.SetColumn(2, Vector3d(7, 8, 9));
  EXPECT_TRUE(m.mirrored) << "without a test";
  m.SetColumn(3, Vector3d(10, 11, 12));
  ExpectElements(m, {1, 4, 7, 10, 2, 5, 8, 11, 3, 6, 9, 12, 0, 0, 0, 1});
  for (int i = 0; i < 4; ++i) EXPECT_TRUE(m.GetColumn(i) == Vector3d(3 * i + 1, 3 * i + 2, 3 * i + 3));
  m.SetColumn(4, Vector3d(9, 9, 9));
  ExpectElements(m, {1, 4, 7, 10, 2, 5, 8, 11, 3, 6, 9, 12, 0, 0, 0, 1});
  EXPECT_TRUE(m.GetColumn(4) == Vector3d());
  EXPECT_TRUE(m.GetColumn(-1) == Vector3d());
}

TEST(Matrix, OnlyTheTranslationColumnTestsForUnit) {
  Matrix m;
  m.SetColumn(0, Vector3d(2, 0, 0));
  EXPECT_TRUE(m.unit) << "stale until asked";
  m.SetColumn(3, Vector3d(0, 0, 0));
  EXPECT_FALSE(m.unit);
  m.SetAxes(Vector3d(1, 0, 0), Vector3d(0, 1, 0), Vector3d(0, 0, 1));
  EXPECT_TRUE(m.unit);
  m.SetAxes(Vector3d(1, 0, 0), Vector3d(0, 1, 0), Vector3d(0, 0, 1), Vector3d(0, 0, 1));
  EXPECT_FALSE(m.unit);
  EXPECT_EQ(m.e[11], 1);
}

TEST(Matrix, ScaleIsTheLengthOfTheRows) {
  Matrix m;
  m.Scale(2, -3, 4);
  m.Translate(9, 9, 9);
  double sx = 0;
  double sy = 0;
  double sz = 0;
  m.GetScale(sx, sy, sz);
  EXPECT_EQ(sx, 2);
  EXPECT_EQ(sy, 3);
  EXPECT_EQ(sz, 4);
  m.unit = true;
  m.GetScale(sx, sy, sz);
  EXPECT_EQ(sx, 1);
  EXPECT_EQ(sz, 1);
}

TEST(Matrix, UniformScaleDoesNotLookAtZ) {
  Matrix m;
  Matrix n;
  Matrix near;
  double s = 0;
  m.Scale(2, 2, 5);
  EXPECT_TRUE(m.GetUniformScale(s));
  EXPECT_EQ(s, 2);
  n.Scale(2, 3, 1);
  EXPECT_FALSE(n.GetUniformScale(s));
  EXPECT_EQ(s, 2);
  near.Scale(1, 1 + 0.9e-6, 1);
  EXPECT_TRUE(near.GetUniformScale(s));
  near.Scale(1, 1 + 0.2e-6, 1);
  EXPECT_FALSE(near.GetUniformScale(s));
  EXPECT_TRUE(Matrix().GetUniformScale(s));
  EXPECT_EQ(s, 1);
}

TEST(Matrix, RotationAnglesComposeTheMatrixAgain) {
  Random random(812);
  for (int i = 0; i < 1000; ++i) {
    const double x = random.Between(-3, 3);
    const double y = random.Between(-1.5, 1.5);
    const double z = random.Between(-3, 3);
    Matrix m;
    m.Scale(random.Between(0.5, 4));
    m.Rotate(x, 1);
    m.Rotate(y, 2);
    m.Rotate(z, 3);
    double ax = 0;
    double ay = 0;
    double az = 0;
    m.GetRotation(ax, ay, az);
    EXPECT_NEAR(ax, x, 1e-9);
    EXPECT_NEAR(ay, y, 1e-9);
    EXPECT_NEAR(az, z, 1e-9);
  }
}

TEST(Matrix, RotationOfAMirrorTurnsTheFirstRow) {
  Matrix m;
  m.Scale(-1, 1, 1);
  m.Rotate(0.4, 1);
  m.mirrored = false;
  double ax = 9;
  double ay = 9;
  double az = 9;
  m.GetRotation(ax, ay, az);
  EXPECT_TRUE(m.mirrored) << "found on the way";
  EXPECT_NEAR(ax, 0.4, 1e-12);
  EXPECT_NEAR(ay, 0, 1e-12);
  EXPECT_NEAR(az, 0, 1e-12);
}

TEST(Matrix, RotationOfTheIdentityIsNone) {
  double ax = 9;
  double ay = 9;
  double az = 9;
  Matrix m;
  m.GetRotation(ax, ay, az);
  EXPECT_EQ(ax, 0);
  EXPECT_EQ(ay, 0);
  EXPECT_EQ(az, 0);
}

TEST(Matrix, RotationAtTheExactLockIsAllInX) {
  for (const double sign : {1.0, -1.0}) {
    Matrix m;
    m.Rotate(sign, 0, 2);
    m.Rotate(0.5, 3);
    double ax = 9;
    double ay = 9;
    double az = 9;
    m.GetRotation(ax, ay, az);
    EXPECT_NEAR(ax, -sign * 0.5, 1e-12) << "the turn about Z is found as one about X";
    EXPECT_DOUBLE_EQ(ay, sign * kPi / 2);
    EXPECT_EQ(az, 0);
    Matrix again;
    again.Rotate(ax, 1);
    again.Rotate(ay, 2);
    EXPECT_TRUE(again == m);
  }
}

TEST(Matrix, RotationNearTheLockGivesAHalfRightAngleAboutZ) {
  double ax = 0;
  double ay = 0;
  double az = 0;
  const double sheared[16] = {0, 0, 1, 0, 0, 0.6, 0.8, 0, -1, 0, 0, 0, 0, 0, 0, 1};
  Matrix n(sheared);
  // sx = 1, sy = 1: t1 = 0.6 - 1 = -0.4, t2 = 0.8; A = 0.8 / r, B = -0.4 / r, C = B, D = -B.
  n.GetRotation(ax, ay, az);
  EXPECT_NEAR(ax, std::atan2(-0.4, 0.8), 1e-12);
  EXPECT_NEAR(ay, kPi / 2, 1e-12);
  EXPECT_NEAR(az, std::atan2(1, -1), 1e-12) << "135 degrees";
}

TEST(Matrix, RotationIsLockedUpToAThousandthOfTheSquaredCosine) {
  const auto rotation = [](double squaredCosine) {
    Matrix m;
    m.Rotate(0.3, 1);
    m.Rotate(std::acos(std::sqrt(squaredCosine)), 2);
    m.Rotate(0.5, 3);
    double ax = 0;
    double ay = 0;
    double az = 0;
    m.GetRotation(ax, ay, az);
    return Vector3d(ax, ay, az);
  };
  EXPECT_TRUE(rotation(0.00101) == Vector3d(0.3, std::acos(std::sqrt(0.00101)), 0.5));
  EXPECT_EQ(rotation(0.00099).dy, kPi / 2);
}

TEST(Matrix, RotationNearTheLowerLockHasTheOtherSign) {
  double ax = 0;
  double ay = 0;
  double az = 0;
  const double sheared[16] = {0, 0, -1, 0, 0, 0.6, 0.8, 0, 1, 0, 0, 0, 0, 0, 0, 1};
  Matrix m(sheared);
  m.GetRotation(ax, ay, az);
  EXPECT_NEAR(ax, std::atan2(0.4, -0.8), 1e-12);
  EXPECT_NEAR(ay, -kPi / 2, 1e-12);
  EXPECT_NEAR(az, kPi / 4, 1e-12);
}

TEST(Matrix, RotationAtTheLockIsAllInXUpToTheTolerance) {
  const UnitsGuard guard(0);
  for (const double turn : {0.0049, 0.0051}) {
    const double c = std::cos(turn);
    const double s = std::sin(turn);
    const double locked[16] = {0, 0, 1, 0, 0, c, s, 0, -1, 0, 0, 0, 0, 0, 0, 1};
    Matrix m(locked);
    double ax = 0;
    double ay = 0;
    double az = 0;
    m.GetRotation(ax, ay, az);
    EXPECT_NEAR(az, turn < 0.005 ? 0 : 0.75 * kPi, 1e-9);
    EXPECT_NEAR(ax, turn < 0.005 ? -turn : -turn / 2, 1e-6);
  }
}

TEST(Matrix, InverseUndoesTheMatrix) {
  Random random(813);
  for (int i = 0; i < 2000; ++i) {
    double elements[16];
    for (double& element : elements) element = random.Between(-2, 2);
    const Matrix m(elements);
    Matrix product;
    try {
      product = m.Inverse();
    } catch (const wchar_t*) {
      continue;
    }
    product.Multiply(m);
    for (int k = 0; k < 16; ++k) EXPECT_NEAR(product.e[k], kIdentity[k], 1e-8);
  }
}

TEST(Matrix, InverseOfAMotionTakesPointsBack) {
  Random random(814);
  for (int i = 0; i < 1000; ++i) {
    Matrix m;
    m.Rotate(random.Between(-3, 3), 1 + random.Below(3));
    m.Scale(random.Between(0.2, 5), random.Between(-5, -0.2), random.Between(0.2, 5));
    m.Rotate(random.Between(-3, 3), 1 + random.Below(3));
    m.Translate(random.Between(-9, 9), random.Between(-9, 9), random.Between(-9, 9));
    const Matrix inverse = m.Inverse();
    EXPECT_TRUE(inverse.mirrored);
    const Point3d p(random.Between(-9, 9), random.Between(-9, 9), random.Between(-9, 9));
    EXPECT_TRUE(p.Transform(m).Transform(inverse) == p);
  }
}

TEST(Matrix, InverseOfUnitIsACopy) {
  Matrix m;
  m.e[3] = 7;
  EXPECT_EQ(m.Inverse().e[3], 7) << "the flag decides";
  Matrix recognised;
  recognised.Translate(0, 0, 0);
  EXPECT_TRUE(recognised.Inverse().unit);
}

TEST(Matrix, SingularOnesHaveNoInverse) {
  Matrix flat;
  Matrix tiny;
  Matrix nothing;
  flat.Scale(1, 0, 1);
  tiny.Scale(1, 9e-11, 1);
  nothing.Scale(kNaN);
  const std::wstring refusal = L"Singular Matrix - Inversion failure";
  EXPECT_EQ(ThrownText([&] { flat.Inverse(); }), refusal);
  EXPECT_EQ(ThrownText([&] { tiny.Inverse(); }), refusal);
  EXPECT_EQ(ThrownText([&] { nothing.Inverse(); }), refusal);
  Matrix small;
  small.Scale(1, 1e-10, 1);
  EXPECT_DOUBLE_EQ(small.Inverse().e[5], 1e10) << "at the limit itself there is one";
}

TEST(Matrix, TransposedExchangesRowsAndColumns) {
  Matrix m;
  for (int i = 0; i < 16; ++i) m.e[i] = i;
  double out[16];
  m.Transposed(out);
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) EXPECT_EQ(out[4 * row + column], 4 * column + row);
  }
}

TEST(Matrix, EqualityLooksAtFlagsAndElements) {
  Matrix a;
  Matrix b;
  EXPECT_TRUE(a == b);
  b.e[3] = 1e-9;
  EXPECT_TRUE(a == b);
  b.e[3] = 1.1e-9;
  EXPECT_FALSE(a == b);
  b = a;
  b.unit = false;
  EXPECT_FALSE(a == b);
  b = a;
  b.mirrored = true;
  EXPECT_FALSE(a == b);
}

TEST(Matrix, EqualityHasTheTightToleranceOfTheUnit) {
  const UnitsGuard guard(0);
  const Matrix a;
  Matrix b;
  b.e[3] = 1e-6;
  EXPECT_TRUE(a == b);
  b.e[3] = 1.1e-6;
  EXPECT_FALSE(a == b);
}

TEST(Matrix, MirrorReflectsInAPlane) {
  Vector3d normal(1, 2, 2);
  const Plane plane(Point3d(3, -1, 4), normal);
  Matrix m;
  m.Scale(7);
  m.Mirror(plane);
  EXPECT_TRUE(m.mirrored);
  EXPECT_FALSE(m.unit);
  Random random(815);
  for (int i = 0; i < 100; ++i) {
    const Point3d p(random.Between(-9, 9), random.Between(-9, 9), random.Between(-9, 9));
    const Point3d image = p.Transform(m);
    EXPECT_NEAR(plane.Dist(image), -plane.Dist(p), 1e-12);
    EXPECT_NEAR(Cross(Vector3d(p, image), normal).Magnitude(), 0, 1e-9);
    EXPECT_TRUE(image.Transform(m) == p);
  }
}

TEST(Matrix, MirrorReplacesWhatWasThere) {
  Matrix fresh;
  Matrix used;
  used.Translate(1, 2, 3);
  fresh.Mirror(PLANE_XY);
  used.Mirror(PLANE_XY);
  EXPECT_TRUE(fresh == used);
  ExpectElements(fresh, {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1});
}

/// A host that holds one record and notes its calls.
struct FakeVdm {
  std::string calls;
  unsigned char record[144];
  int handle;
};
FakeVdm vdm;

const MatrixVdmHost kFakeHost = {
    .Make =
        [](int number, int a, int b) {
          vdm.calls +=
              "make " + std::to_string(number) + " " + std::to_string(a) + " " + std::to_string(b) + ";";
          return vdm.handle;
        },
    .Open =
        [](int number, int a, int b) {
          vdm.calls +=
              "open " + std::to_string(number) + " " + std::to_string(a) + " " + std::to_string(b) + ";";
          return vdm.handle;
        },
    .WriteTmx =
        [](int handle, const void* record) {
          vdm.calls += "write " + std::to_string(handle) + ";";
          std::memcpy(vdm.record, record, sizeof vdm.record);
          return 0;
        },
    .ReadTmx =
        [](int handle, void* record) {
          vdm.calls += "read " + std::to_string(handle) + ";";
          std::memcpy(record, vdm.record, sizeof vdm.record);
          return 0;
        },
    .Close =
        [](int handle) {
          vdm.calls += "close " + std::to_string(handle) + ";";
          return 0;
        },
};

TEST(MatrixVdm, WithoutHostCannotBeCreatedOrOpened) {
  SetMatrixVdmHost({});
  Matrix m;
  EXPECT_EQ(ThrownText([&] { m.ToVdm(12); }), L"Failed to create Matrix VDM");
  EXPECT_EQ(ThrownText([&] { m.FromVdm(12); }), L"Failed to open Matrix VDM");
}

TEST(MatrixVdm, StoresTheElementsAndSixteenBytesOfZero) {
  SetMatrixVdmHost(kFakeHost);
  vdm = {.calls = "", .record = {}, .handle = 4};
  std::memset(vdm.record, 0xff, sizeof vdm.record);
  Matrix m;
  m.Rotate(0.4, 2);
  m.Translate(1, 2, 3);
  m.ToVdm(30);
  EXPECT_EQ(vdm.calls, "make 30 2 0;write 4;close 4;");
  double stored[16];
  std::memcpy(stored, vdm.record, sizeof stored);
  for (int i = 0; i < 16; ++i) EXPECT_EQ(stored[i], m.e[i]);
  for (int i = 128; i < 144; ++i) EXPECT_EQ(vdm.record[i], 0);

  vdm.calls = "";
  Matrix back;
  back.FromVdm(30);
  EXPECT_EQ(vdm.calls, "open 30 2 2;read 4;close 4;");
  EXPECT_TRUE(back == m);
}

TEST(MatrixVdm, ReadsUnitExactlyAndComputesMirroredAgain) {
  SetMatrixVdmHost(kFakeHost);
  vdm = {.calls = "", .record = {}, .handle = 0};
  Matrix m;
  Matrix back;
  m.e[0] = 1 + 5e-13;
  ASSERT_TRUE(m.IsUnit());
  m.ToVdm(1);
  back.FromVdm(1);
  EXPECT_FALSE(back.unit) << "no tolerance here";
  EXPECT_TRUE(back.IsUnit());
  Matrix().ToVdm(1);
  back.FromVdm(1);
  EXPECT_TRUE(back.unit);
  Matrix mirror;
  mirror.Scale(1, 1, -1);
  mirror.ToVdm(1);
  back.FromVdm(1);
  EXPECT_TRUE(back.mirrored);
}

TEST(MatrixVdm, ANegativeHandleIsRefusedBeforeAnythingIsWritten) {
  SetMatrixVdmHost(kFakeHost);
  vdm = {.calls = "", .record = {}, .handle = -1};
  Matrix m;
  EXPECT_EQ(ThrownText([&] { m.ToVdm(5); }), L"Failed to create Matrix VDM");
  EXPECT_EQ(ThrownText([&] { m.FromVdm(5); }), L"Failed to open Matrix VDM");
  EXPECT_EQ(vdm.calls, "make 5 2 0;open 5 2 2;");
}

}  // namespace
}  // namespace geometry
