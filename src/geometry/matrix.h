#pragma once

#include "geometry/point.h"

namespace geometry {

/// A transformation of space: sixteen elements by rows, points being columns.
///
/// Flags   `unit` lets transforms skip all arithmetic; `mirrored` says that arcs change their direction. Each
///         operation says what it does to them. Code that writes elements directly calls `IsUnit` and
///         `IsMirrored` afterwards
/// Order   an operation applies after those that are already in the matrix
/// Units   translations in the current unit, angles in radians
class Matrix {
 public:
  double e[16];
  bool unit;
  bool mirrored;

  Matrix();
  explicit Matrix(const double (&elements)[16]);  ///< computes the flags
  Matrix(const Matrix&) = default;                ///< takes the flags as they are
  Matrix& operator=(const Matrix&) = default;

  void Unit();                     ///< becomes the identity
  void Multiply(const Matrix& m);  ///< this becomes m times this
  /// Adds a translation. Clears `unit`, also for a translation by 0.
  void Translate(double dx, double dy, double dz = 0);
  /// Adds a rotation about axis 1 (X), 2 (Y) or 3 (Z); another number adds nothing.
  void Rotate(double sina, double cosa, int axis);
  void Rotate(double angle, int axis);
  void Rotate(double sina, double cosa, const Vector3d& axisVector);  ///< Requires: a unit vector
  void Rotate(double angle, const Vector3d& axisVector);
  /// Adds a scale, the same in all directions or one for each axis.
  void Scale(double s);
  void Scale(double sx, double sy, double sz);
  void ScaleTranslation(double f);  ///< multiplies the translation alone

  /// Sets `unit`: all elements within 1e-12 of the identity. A unit matrix also loses `mirrored`.
  bool IsUnit();
  /// Sets `mirrored`: the determinant of the upper left 3x3 part is negative.
  bool IsMirrored();

  void Transform(const double p[3], double out[3]) const;
  Point3d Transform(const Point3d& p) const;
  void Transform2d(double x, double y, double& xo, double& yo) const;

  Vector3d GetTranslation() const;
  /// The column 0 to 3, without the last row; the null vector for another number.
  Vector3d GetColumn(int i) const;
  /// Column 3, the translation, recomputes `unit`; columns 0 to 2 leave both flags. Another number is
  /// ignored.
  void SetColumn(int i, const Vector3d& v);
  void SetAxes(const Vector3d& x, const Vector3d& y, const Vector3d& z);
  void SetAxes(const Vector3d& x, const Vector3d& y, const Vector3d& z, const Vector3d& t);

  void GetScale(double& sx, double& sy, double& sz) const;
  /// Gives the scale in x and returns whether the scale in y is the same within 1e-6. The scale in z does not
  /// count.
  bool GetUniformScale(double& s) const;
  /// The angles about X, Y and Z of a matrix without shear, in radians. Sets `mirrored`.
  void GetRotation(double& ax, double& ay, double& az);
  /// The inverse, by elimination with full pivoting. Throws L"Singular Matrix - Inversion failure".
  Matrix Inverse() const;
  void Transposed(double (&out)[16]) const;
  /// Equal flags, and elements within `TIGHT_TOLERANCE`.
  bool operator==(const Matrix& m) const;
  /// Becomes the reflection in `plane`, whatever it was before.
  void Mirror(const Plane& plane);

  /// Stores the elements in the host's VDM of that number. Throws L"Failed to create Matrix VDM".
  void ToVdm(int vdmNumber) const;
  /// Reads them back; `unit` then means the exact identity. Throws L"Failed to open Matrix VDM".
  void FromVdm(int vdmNumber);

 private:
  double Determinant3() const;
};

/// The host's operations that `ToVdm` and `FromVdm` use. A handle below 0 is a failure. A record has 144
/// bytes: the sixteen elements, then sixteen bytes of zero.
struct MatrixVdmHost {
  int (*Make)(int vdmNumber, int a, int b);
  int (*Open)(int vdmNumber, int a, int b);
  int (*WriteTmx)(int handle, const void* record);
  int (*ReadTmx)(int handle, void* record);
  int (*Close)(int handle);
};

/// Sets the host for the process. Without one, at start and after an empty one, nothing can be created or
/// opened.
void SetMatrixVdmHost(const MatrixVdmHost& host);

}  // namespace geometry
