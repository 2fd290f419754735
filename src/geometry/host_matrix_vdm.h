#pragma once

namespace geometry {

/// Connects `Matrix::ToVdm` and `Matrix::FromVdm` to the VDMs of the host that loaded the module. This is the
/// only use of the host in the library; a program that does not call it needs no host.
void UseHostForMatrixVdm();

}  // namespace geometry
