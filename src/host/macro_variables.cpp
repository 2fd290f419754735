#include "host/macro_variables.h"

#include <vector>

#include "host/bridge.h"
#include "host/host_functions.h"
#include "platform/message_box.h"

namespace vanzet::OrvoApi {
namespace {

using host::Flag;
using host::hostFunctions;

/// Shows a box for a refusal. Returns whether the host accepted the call.
bool ReportIfRefused(Flag ok, const std::string& name, const char* caption) {
  if (ok == 0) host::HostMessageBox(caption, name, platform::box::kOk);
  return ok != 0;
}

}  // namespace

std::int32_t GetGlobalIntVar(const std::string& name, bool& ok) {
  Flag flag = 0;
  const std::int32_t value = hostFunctions.OrvoReadGlobalI(name, &flag);
  ok = ReportIfRefused(flag, name, "OrvoApi::MacroExport::GetGlobalIntVar Failed");
  return value;
}

std::int32_t GetGlobalIntVar(const std::string& name) {
  bool ok = false;
  return GetGlobalIntVar(name, ok);
}

bool GetGlobalRealVar(const std::string& name, double& value) {
  Flag flag = 0;
  value = hostFunctions.OrvoReadGlobalW(name, &flag);
  // The caption of the integer read, on purpose: reals do not have their own.
  return ReportIfRefused(flag, name, "OrvoApi::MacroExport::GetGlobalIntVar Failed");
}

bool GetGlobalStrVar(const std::string& name, std::string& text) {
  std::vector<char> buffer(host::kStringVariableBytes, '\0');
  Flag flag = 0;
  hostFunctions.OrvoReadGlobalStr(name, buffer.data(), &flag);
  if (!ReportIfRefused(flag, name, "OrvoApi::MacroExport::GetGlobalStrVar Failed")) return false;
  buffer.back() = '\0';
  text = buffer.data();
  return true;
}

bool SetGlobalStrVar(const std::string& name, const std::string& value) {
  Flag flag = 0;
  hostFunctions.OrvoWriteGlobalStr(name, value, &flag);
  return ReportIfRefused(flag, name, "OrvoApi::MacroExport::SetGlobalStrVar Failed");
}

}  // namespace vanzet::OrvoApi
