#include "geometry/host_matrix_vdm.h"

#include "geometry/matrix.h"
#include "host/host_functions.h"

namespace geometry {

using vanzet::host::hostFunctions;

void UseHostForMatrixVdm() {
  SetMatrixVdmHost({
      .Make = [](int number, int a, int b) { return hostFunctions.OrvoVdmMake(number, a, b); },
      .Open = [](int number, int a, int b) { return hostFunctions.OrvoVdmOpen(number, a, b); },
      .WriteTmx = [](int handle,
                     const void* record) { return hostFunctions.OrvoVdmWriteTmx(handle, record); },
      .ReadTmx = [](int handle, void* record) { return hostFunctions.OrvoVdmReadTmx(handle, record); },
      .Close = [](int handle) { return hostFunctions.OrvoVdmClose(handle); },
  });
}

}  // namespace geometry
