#include <algorithm>
#include <cmath>
#include <iterator>

#include "geometry/matrix.h"

namespace geometry {
namespace {

/// Gauss and Jordan in place, with full pivoting. Interchanges negate what is exchanged out, so that the
/// determinant keeps its sign; they are undone in reverse order with rows and columns in each other's role.
class Inversion {
 public:
  explicit Inversion(double (&elements)[16]) : a_(elements) {}

  void Run() {
    for (int k = 0; k < 4; ++k) {
      FindPivot(k);
      ExchangeRows(k, row_[k]);
      ExchangeColumns(k, column_[k]);
      // Also refuses what is not a number.
      if (!(std::fabs(At(k, k)) >= 1e-10)) throw L"Singular Matrix - Inversion failure";
      Eliminate(k);
    }
    for (int k = 3; k >= 0; --k) {
      ExchangeColumns(row_[k], k);
      ExchangeRows(column_[k], k);
    }
  }

 private:
  double& At(int row, int column) { return a_[4 * row + column]; }

  /// The largest element of the trailing part; of equal ones the first.
  void FindPivot(int k) {
    row_[k] = column_[k] = k;
    for (int row = k; row < 4; ++row) {
      for (int column = k; column < 4; ++column) {
        if (std::fabs(At(row, column)) <= std::fabs(At(row_[k], column_[k]))) continue;
        row_[k] = row;
        column_[k] = column;
      }
    }
  }

  void ExchangeRows(int k, int other) {
    if (k == other) return;
    for (int column = 0; column < 4; ++column) {
      const double out = -At(k, column);
      At(k, column) = At(other, column);
      At(other, column) = out;
    }
  }

  void ExchangeColumns(int k, int other) {
    if (k == other) return;
    for (int row = 0; row < 4; ++row) {
      const double out = -At(row, k);
      At(row, k) = At(row, other);
      At(row, other) = out;
    }
  }

  void Eliminate(int k) {
    const double pivot = At(k, k);
    for (int row = 0; row < 4; ++row) {
      if (row != k) At(row, k) /= -pivot;
    }
    for (int row = 0; row < 4; ++row) {
      for (int column = 0; column < 4; ++column) {
        if (row != k && column != k) At(row, column) += At(row, k) * At(k, column);
      }
    }
    for (int column = 0; column < 4; ++column) {
      if (column != k) At(k, column) /= pivot;
    }
    At(k, k) = 1.0 / pivot;
  }

  double (&a_)[16];
  int row_[4] = {}, column_[4] = {};
};

}  // namespace

Matrix Matrix::Inverse() const {
  if (unit) return *this;
  double elements[16];
  std::copy(std::begin(e), std::end(e), elements);
  Inversion(elements).Run();
  return Matrix(elements);
}

}  // namespace geometry
