#include "store/macro_vdm.h"

#include <algorithm>

#include "base/exception_fault.h"
#include "base/letter_case.h"
#include "host/bridge.h"
#include "host/host_functions.h"
#include "host/macro_variables.h"
#include "host/message_ids.h"
#include "host/messages.h"
#include "platform/host_extensions.h"
#include "platform/message_box.h"
#include "platform/split_path.h"

namespace vanzet::OrvoApi {
namespace {

using host::hostFunctions;

/// The return value of the host when it could not open a handle.
constexpr std::uint32_t kNoHandle = 0xFFFFFFFF;

constexpr std::int32_t kFromStart = 0;
constexpr std::int32_t kOnce = 1;

/// Reports the exception of a host's call that no caller can be given, since an object goes.
void ReportLostClose() noexcept {
  try {
    platform::ReportFault(FaultOfException());
  } catch (...) {  // the host cannot hear it either
  }
}

/// A host refuses a longer text and reports it; a caller that counts items must not count it.
bool FitsAnItem(const std::string& text) {
  return text.size() < kItemBytes;
}

}  // namespace

MacroVdm::~MacroVdm() {
  try {
    if (IsOpen()) Close();
  } catch (...) {
    ReportLostClose();
  }
}

bool MacroVdm::Create() {
  if (IsOpen()) {
    ReportError("Create: class already open");
    return false;
  }
  if (hostFunctions.OrvoMacroVdmExists(vdmNumber) != 0) {
    ReportError("Create: vdm exist");
    return false;
  }
  handle = hostFunctions.OrvoMacroVdmCreate(vdmNumber, 0);
  if (handle == kNoHandle) {
    handle = 0;
    ReportError("Create: ORVO can not create");
    return false;
  }
  return true;
}

bool MacroVdm::Open() {
  if (IsOpen()) {
    ReportError("Open: class already open");
    return false;
  }
  if (hostFunctions.OrvoMacroVdmExists(vdmNumber) == 0) {
    ReportError("Open: vdm doesn't exist");
    return false;
  }
  if (hostFunctions.OrvoMacroVdmCheckOpen(vdmNumber) >= 1) {
    ReportError("Open: already open by another process");
    return false;
  }
  handle = hostFunctions.OrvoMacroVdmOpen(vdmNumber, 1);
  if (handle == kNoHandle) {
    handle = 0;
    ReportError("Open: ORVO can not open");
    return false;
  }
  return true;
}

bool MacroVdm::Close() {
  if (!OpenFor("Close")) return false;
  if (hostFunctions.OrvoMacroVdmCheckOpen(vdmNumber) == 0) {
    ReportError("Close: already closed by another process");
    handle = 0;
    return false;
  }
  hostFunctions.OrvoMacroVdmClose(handle);
  handle = 0;
  return true;
}

bool MacroVdm::LoadFromFile(const std::string& path) {
  if (hostFunctions.OrvoMacroVdmExists(vdmNumber) != 0) {
    if (IsOpen()) Close();
    hostFunctions.OrvoMacroVdmDelete(vdmNumber);
  }
  if (!EqualWithoutCase(platform::SplitPath(path).extension, ".vdm")) {
    std::string text;
    host::HostMessageBox(
        "", host::TextMessage(message::kInvalidVdmName, host::DefaultText(message::kInvalidVdmName), text),
        platform::box::kOk);
    return false;
  }
  host::SendCommand("vdm load '" + path + "' i_ret " + std::to_string(vdmNumber));
  return GetGlobalIntVar("i_ret") != -1;
}

bool MacroVdm::SingleGet(std::string& text) {
  if (!OpenFor("SingleGet::str")) return false;
  itemBuffer[0] = '\0';
  hostFunctions.OrvoMacroVdmSingleGetStr(handle, itemBuffer, kOnce);
  text.assign(itemBuffer, std::find(itemBuffer, itemBuffer + kItemBytes, '\0'));
  return true;
}

bool MacroVdm::SingleAdd(const std::string& text) {
  if (!OpenFor("SingleAdd::str")) return false;
  hostFunctions.OrvoMacroVdmSingleAddStr(handle, text, kOnce);
  return FitsAnItem(text);
}

bool MacroVdm::SingleReplace(const std::string& text) {
  if (!OpenFor("SingleReplace::str")) return false;
  hostFunctions.OrvoMacroVdmSingleReplaceStr(handle, text, kOnce);
  return FitsAnItem(text);
}

void MacroVdm::SeekFromStart(std::int32_t record) {
  if (OpenFor("SeekFromStart")) hostFunctions.OrvoMacroVdmSeek(handle, record, kFromStart);
}

void MacroVdm::SingleSeek(std::int32_t count) {
  if (OpenFor("SingleSeek")) hostFunctions.OrvoMacroVdmSingleSeek(handle, count);
}

std::int32_t MacroVdm::Size() {
  return IsOpen() ? hostFunctions.OrvoMacroVdmSize(handle) : 0;
}

void MacroVdm::ReportError(const std::string& message) {
  ReportUnder("OrvoApi::MacroVdm", message);
}

void MacroVdm::ReportUnder(const char* caption, const std::string& message) const {
  host::HostMessageBox(caption, std::to_string(vdmNumber) + ": " + message, platform::box::kOk);
}

bool MacroVdm::OpenFor(const char* operation) {
  if (!IsOpen()) ReportError(std::string(operation) + ": Vdm not open");
  return IsOpen();
}

}  // namespace vanzet::OrvoApi
