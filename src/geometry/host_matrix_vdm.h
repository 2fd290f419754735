#pragma once

namespace geometry {

/// Lets `Matrix::ToVdm` and `Matrix::FromVdm` work on the VDMs of the host that loaded the module. The only
/// tie of the library to the host; who does not call it needs none.
void UseHostForMatrixVdm();

}  // namespace geometry
