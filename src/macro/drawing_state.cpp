#include "macro/drawing_state.h"

#include "host/host_functions.h"
#include "macro/command_text.h"

namespace vanzet::macro {

void BeginTurningDrawing() {
  SendLine("ori");
  SendLine("mct turning");
  // Whether the host took it shows nowhere.
  host::Flag ok = 0;
  host::hostFunctions.OrvoWriteGlobalI("i_diaprg", 1, &ok);
}

std::string CurrentLayer() {
  return host::hostFunctions.OrvoGetLayerName(host::hostFunctions.OrvoGetCurrentLayer());
}

void ChangeLayer(std::string_view name) {
  SendLine("lay ch '", name, "'");
}

}  // namespace vanzet::macro
