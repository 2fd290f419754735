#include "geometry/matrix.h"

#include <algorithm>
#include <cmath>

#include "geometry/elements.h"

namespace geometry {
namespace {

bool IsDiagonal(int element) {
  return element % 5 == 0;
}

}  // namespace

Matrix::Matrix() {
  Unit();
}

Matrix::Matrix(const double (&elements)[16]) : unit(false), mirrored(false) {
  std::copy(std::begin(elements), std::end(elements), e);
  IsUnit();
  IsMirrored();
}

void Matrix::Unit() {
  for (int i = 0; i < 16; ++i) e[i] = IsDiagonal(i) ? 1.0 : 0.0;
  unit = true;
  mirrored = false;
}

void Matrix::Multiply(const Matrix& m) {
  double product[16];
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) {
      double sum = 0;
      for (int k = 0; k < 4; ++k) sum += m.e[4 * row + k] * e[4 * k + column];
      product[4 * row + column] = sum;
    }
  }
  *this = Matrix(product);
}

void Matrix::Translate(double dx, double dy, double dz) {
  e[3] += dx;
  e[7] += dy;
  e[11] += dz;
  unit = false;
}

void Matrix::Scale(double s) {
  Scale(s, s, s);
}

void Matrix::Scale(double sx, double sy, double sz) {
  Matrix diagonal;
  diagonal.e[0] = sx;
  diagonal.e[5] = sy;
  diagonal.e[10] = sz;
  Multiply(diagonal);
}

void Matrix::ScaleTranslation(double f) {
  e[3] *= f;
  e[7] *= f;
  e[11] *= f;
  IsUnit();
}

bool Matrix::IsUnit() {
  constexpr double kUnitTolerance = 1e-12;
  unit = true;
  for (int i = 0; i < 16 && unit; ++i) unit = NearEqual(e[i], IsDiagonal(i) ? 1.0 : 0.0, kUnitTolerance);
  if (unit) mirrored = false;
  return unit;
}

double Matrix::Determinant3() const {
  return e[0] * (e[5] * e[10] - e[6] * e[9]) - e[1] * (e[4] * e[10] - e[6] * e[8]) +
         e[2] * (e[4] * e[9] - e[5] * e[8]);
}

bool Matrix::IsMirrored() {
  mirrored = !unit && 0.0 > Determinant3();
  return mirrored;
}

void Matrix::Transform(const double p[3], double out[3]) const {
  const Point3d moved = Transform(Point3d(p[0], p[1], p[2]));
  out[0] = moved.x;
  out[1] = moved.y;
  out[2] = moved.z;
}

Point3d Matrix::Transform(const Point3d& p) const {
  if (unit) return p;
  return {e[0] * p.x + e[1] * p.y + e[2] * p.z + e[3], e[4] * p.x + e[5] * p.y + e[6] * p.z + e[7],
          e[8] * p.x + e[9] * p.y + e[10] * p.z + e[11]};
}

void Matrix::Transform2d(double x, double y, double& xo, double& yo) const {
  xo = unit ? x : e[0] * x + e[1] * y + e[3];
  yo = unit ? y : e[4] * x + e[5] * y + e[7];
}

Vector3d Matrix::GetTranslation() const {
  return GetColumn(3);
}

Vector3d Matrix::GetColumn(int i) const {
  if (i < 0 || i > 3) return {};
  return {e[i], e[4 + i], e[8 + i]};
}

void Matrix::SetColumn(int i, const Vector3d& v) {
  if (i < 0 || i > 3) return;
  e[i] = v.dx;
  e[4 + i] = v.dy;
  e[8 + i] = v.dz;
  if (i == 3) IsUnit();
}

void Matrix::SetAxes(const Vector3d& x, const Vector3d& y, const Vector3d& z) {
  SetColumn(0, x);
  SetColumn(1, y);
  SetColumn(2, z);
  IsUnit();
}

void Matrix::SetAxes(const Vector3d& x, const Vector3d& y, const Vector3d& z, const Vector3d& t) {
  SetColumn(0, x);
  SetColumn(1, y);
  SetColumn(2, z);
  SetColumn(3, t);
}

void Matrix::GetScale(double& sx, double& sy, double& sz) const {
  const auto rowLength = [this](int i) {
    return unit ? 1.0 : Vector3d(e[i], e[i + 1], e[i + 2]).Magnitude();
  };
  sx = rowLength(0);
  sy = rowLength(4);
  sz = rowLength(8);
}

bool Matrix::GetUniformScale(double& s) const {
  double sx = 1.0;
  double sy = 1.0;
  double sz = 1.0;
  GetScale(sx, sy, sz);
  s = sx;
  return 1e-6 > std::fabs(std::fabs(sx) - std::fabs(sy));
}

void Matrix::Transposed(double (&out)[16]) const {
  for (int i = 0; i < 16; ++i) out[4 * (i % 4) + i / 4] = e[i];
}

bool Matrix::operator==(const Matrix& m) const {
  return unit == m.unit && mirrored == m.mirrored &&
         std::equal(std::begin(e), std::end(e), std::begin(m.e),
                    [](double a, double b) { return NearEqual(a, b, TIGHT_TOLERANCE); });
}

void Matrix::Mirror(const Plane& plane) {
  if (!unit) Unit();
  // I - 2 n n' about the foot of the origin, which is -d n.
  const double n[] = {plane.normal.dx, plane.normal.dy, plane.normal.dz};
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) {
      e[4 * row + column] = (row == column ? 1.0 : 0.0) - 2.0 * n[row] * n[column];
    }
    e[4 * row + 3] = -2.0 * n[row] * plane.d;
  }
  IsUnit();
  IsMirrored();
}

}  // namespace geometry
