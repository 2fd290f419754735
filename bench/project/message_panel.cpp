#include "project/message_panel.h"

namespace vanzet::project {
namespace {

/// True for a cause that every later call meets, too.
bool IsLasting(FaultKind kind) {
  return kind == FaultKind::kSystem || kind == FaultKind::kBusy || kind == FaultKind::kDamaged;
}

/// The message without the macro line that met the cause: a fault has such a line, in quotes, for its file.
std::string CauseOf(const Fault& fault) {
  const bool isOfALine = fault.file.starts_with('\'') && fault.file.ends_with('\'');
  return isOfALine ? fault.text : fault.Message();
}

}  // namespace

void MessagePanel::TellOfCall(const Fault& fault) {
  Tell(HasSystemFailed() && !IsLasting(fault.kind) ? ReportedFault() : fault);
}

void MessagePanel::BeginRun() {
  hasSystemFailed_ = false;
  lastingCauses_.clear();
}

bool MessagePanel::IsRepetition(const Fault& fault) {
  hasSystemFailed_ = hasSystemFailed_ || fault.kind == FaultKind::kSystem;
  return IsLasting(fault.kind) && !lastingCauses_.insert(CauseOf(fault)).second;
}

}  // namespace vanzet::project
