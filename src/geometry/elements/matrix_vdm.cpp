#include <algorithm>
#include <iterator>

#include "geometry/matrix.h"

namespace geometry {
namespace {

/// The record that the host stores: the elements, then two words of zero.
struct TmxRecord {
  double e[16] = {};
  double rest[2] = {};
};
static_assert(sizeof(TmxRecord) == 144);

constinit MatrixVdmHost vdmHost = {};

}  // namespace

void SetMatrixVdmHost(const MatrixVdmHost& host) {
  vdmHost = host;
}

void Matrix::ToVdm(int vdmNumber) const {
  const int handle = vdmHost.Make != nullptr ? vdmHost.Make(vdmNumber, 2, 0) : -1;
  if (handle < 0) throw L"Failed to create Matrix VDM";
  TmxRecord record;
  std::copy(std::begin(e), std::end(e), record.e);
  vdmHost.WriteTmx(handle, &record);
  vdmHost.Close(handle);
}

void Matrix::FromVdm(int vdmNumber) {
  const int handle = vdmHost.Open != nullptr ? vdmHost.Open(vdmNumber, 2, 2) : -1;
  if (handle < 0) throw L"Failed to open Matrix VDM";
  TmxRecord record;
  vdmHost.ReadTmx(handle, &record);
  std::copy(std::begin(record.e), std::end(record.e), e);
  // Exactly the identity, where `IsUnit` allows for rounding.
  const Matrix identity;
  unit = std::equal(std::begin(e), std::end(e), std::begin(identity.e));
  vdmHost.Close(handle);
  IsMirrored();
}

}  // namespace geometry
