#include "host/bridge.h"

#include "host/host_functions.h"
#include "host/macro_variables.h"
#include "platform/message_box.h"

namespace vanzet::host {

void SendCommand(const char* line) {
  hostFunctions.OrvoCommand(line);
}

void SendCommand(const std::string& line) {
  hostFunctions.OrvoCommand(line);
}

void RunMacro(const std::string& name, const std::string& arguments) {
  hostFunctions.OrvoMacroExec(name, arguments);
}

std::int32_t HostMessageBox(const std::string& caption, const std::string& text, std::int32_t type) {
  return platform::Show({caption, text, type, hostFunctions.OrvoGetWnd(kBoxOwner)});
}

void SetHelpTopic() {
  OrvoApi::SetGlobalStrVar("$_helptopic", "mat_vanzet53");
}

}  // namespace vanzet::host
