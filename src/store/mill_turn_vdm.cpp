#include "store/mill_turn_vdm.h"

#include <algorithm>

#include "host/fields.h"
#include "host/host_functions.h"

namespace vanzet::OrvoApi {

using host::hostFunctions;

bool MillTurnVdm::OperationExist(std::int32_t operation) {
  if (!IsOpen()) {
    ReportError("OperationExist: Vdm not open");
    return false;
  }
  return operation < Size();
}

bool MillTurnVdm::IsOpValid(std::int32_t operation) {
  if (!IsOpen()) {
    ReportError("IsOpValid: Vdm not open");
    return false;
  }
  const std::int32_t size = Size();
  if (operation >= 0 && operation < size) return true;
  ReportError("Operation " + std::to_string(operation) + " (0 based) out of range (" + std::to_string(size) +
              " oprations)");
  return false;
}

bool MillTurnVdm::OperationSelect(std::int32_t operation) {
  currentOperation = -1;
  operationKind = 0;
  operationFlag = false;
  sectionItems.clear();
  if (!IsOpValid(operation)) return false;
  currentOperation = operation;
  return ReadHeader();
}

bool MillTurnVdm::OperationCreate(std::int32_t operation, std::int32_t kind) {
  SeekFromStart(operation);
  // Sent also when closed, with the handle 0: the host passes over it, and the selection below reports.
  hostFunctions.OrvoMacroVdmInsertStr(handle, std::to_string(kind) + " 1 0", 1);
  return OperationSelect(operation);
}

bool MillTurnVdm::OperationDelete(std::int32_t operation) {
  if (operation >= Size()) return true;
  SeekFromStart(operation);
  hostFunctions.OrvoMacroVdmRemove(handle, 1);
  return true;
}

bool MillTurnVdm::ReadHeader() {
  SeekFromStart(currentOperation);
  std::string text;
  if (!IsOpen() || !SingleGet(text)) return false;

  std::size_t position = 0;
  if (host::ReadIntField(text, position, operationKind, 0) == 0) return false;
  if (host::ReadBoolField(text, position, operationFlag, false) == 0) return true;

  std::int32_t stated = 0;
  if (host::ReadIntField(text, position, stated, 0) != 0) {
    std::int32_t items = 0;
    while (host::ReadIntField(text, position, items, 0) != 0) sectionItems.push_back(items);
  }
  if (stated != SectionCount()) {
    ReportError("ReadHeader:: Operation (" + std::to_string(currentOperation) +
                ") actual number of sections (" + std::to_string(SectionCount()) +
                ") differs from that specified in header (" + std::to_string(stated) + ")");
  }
  return true;
}

bool MillTurnVdm::WriteHeader() {
  SeekFromStart(currentOperation);
  if (!IsOpen()) return false;
  std::string text;
  HeaderText(text);
  return SingleReplace(text);
}

void MillTurnVdm::HeaderText(std::string& text) const {
  text = std::to_string(operationKind) + (operationFlag ? " 1 " : " 0 ") + std::to_string(SectionCount());
  for (const std::int32_t items : sectionItems) text += ' ' + std::to_string(items);
}

bool MillTurnVdm::WriteVersion() {
  std::string text;
  if (HasItems(0, 2) && ItemSeek(0, 1)) SingleGet(text);
  std::size_t length = 0;
  const std::size_t start = host::FindFirstToken(text, 0, length);
  text.replace(start, length, "100");
  if (!HasItems(0, 2)) {
    SectionAppend(0);
    FillUpTo(2, "");
    SectionCommit();
  }
  return ItemSeek(0, 1) && SingleReplace(text);
}

void MillTurnVdm::ReportError(const std::string& message) {
  ReportUnder("OrvoApi::MillTurnVdm", message);
}

}  // namespace vanzet::OrvoApi
