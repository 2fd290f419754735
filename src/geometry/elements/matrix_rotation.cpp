#include <cmath>

#include "geometry/matrix.h"

namespace geometry {
namespace {

/// Cosine and sine of the three angles, not scaled, since only their directions matter.
struct EulerTerms {
  double cosX = 1, sinX = 0, cosY = 0, sinY = 0, cosZ = 1, sinZ = 0;
};

EulerTerms FreeTerms(const double (&e)[16], double sx, double sy, double sz, double sinY, double cosY) {
  return {.cosX = e[10] / sz / cosY,
          .sinX = e[9] / sz / cosY,
          .cosY = cosY,
          .sinY = sinY,
          .cosZ = e[0] / sx / cosY,
          .sinZ = e[4] / sy / cosY};
}

/// Gimbal lock: X and Z turn about the same line, and only their sum is known.
EulerTerms LockedTerms(const double (&e)[16], double sx, double sy, double sinY) {
  const double s = sinY < 0 ? -1.0 : 1.0;
  const double t1 = s * e[5] / sy - e[2] / sx;
  const double t2 = s * e[6] / sy + e[1] / sx;
  const double r = std::sqrt(t1 * t1 + t2 * t2);
  EulerTerms t = {.sinY = s};
  if (r > TOLERANCE) {
    t.cosX = t2 / r;
    t.sinX = t1 / r;
    // Not a decomposition of the matrix next to the lock, but what callers of this function know.
    t.cosZ = t.sinX;
    t.sinZ = -s * t.sinX;
  } else {
    t.cosX = e[5] / sy;
    t.sinX = -e[6] / sy;
  }
  return t;
}

}  // namespace

void Matrix::Rotate(double sina, double cosa, int axis) {
  Matrix turn;
  if (axis == 1) {
    turn.e[5] = cosa, turn.e[6] = -sina;
    turn.e[9] = sina, turn.e[10] = cosa;
  } else if (axis == 2) {
    turn.e[0] = cosa, turn.e[2] = sina;
    turn.e[8] = -sina, turn.e[10] = cosa;
  } else if (axis == 3) {
    turn.e[0] = cosa, turn.e[1] = -sina;
    turn.e[4] = sina, turn.e[5] = cosa;
  }
  Multiply(turn);
}

void Matrix::Rotate(double angle, int axis) {
  Rotate(std::sin(angle), std::cos(angle), axis);
}

void Matrix::Rotate(double sina, double cosa, const Vector3d& axisVector) {
  // Rodrigues: cos I + sin [v]x + (1 - cos) v v'.
  const double x = axisVector.dx;
  const double y = axisVector.dy;
  const double z = axisVector.dz;
  const double k = 1.0 - cosa;
  const double rows[16] = {x * x * k + cosa,
                           x * y * k - z * sina,
                           x * z * k + y * sina,
                           0,  //
                           x * y * k + z * sina,
                           y * y * k + cosa,
                           y * z * k - x * sina,
                           0,  //
                           x * z * k - y * sina,
                           y * z * k + x * sina,
                           z * z * k + cosa,
                           0,  //
                           0,
                           0,
                           0,
                           1};
  Multiply(Matrix(rows));
}

void Matrix::Rotate(double angle, const Vector3d& axisVector) {
  Rotate(std::sin(angle), std::cos(angle), axisVector);
}

void Matrix::GetRotation(double& ax, double& ay, double& az) {
  ax = ay = az = 0.0;
  const bool isMirrored = IsMirrored();
  if (unit) return;
  double sx = 1.0;
  double sy = 1.0;
  double sz = 1.0;
  GetScale(sx, sy, sz);
  if (isMirrored) sx = -sx;
  const double sinY = -e[8] / sz;
  const double q = (1.0 - sinY) * (1.0 + sinY);
  const EulerTerms t =
      q > 0.001 ? FreeTerms(e, sx, sy, sz, sinY, std::sqrt(q)) : LockedTerms(e, sx, sy, sinY);
  ax = std::atan2(t.sinX, t.cosX);
  ay = std::atan2(t.sinY, t.cosY);
  az = std::atan2(t.sinZ, t.cosZ);
}

}  // namespace geometry
