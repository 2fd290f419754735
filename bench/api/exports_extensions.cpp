#include "api/call.h"
#include "api/exports.h"

using namespace vanzet;
using namespace vanzet::api;

namespace {

/// The kind of a number; what is not one is a refusal.
FaultKind KindOf(std::int32_t kind) {
  const bool isKind = kind >= 0 && kind <= static_cast<std::int32_t>(FaultKind::kReported);
  return isKind ? static_cast<FaultKind>(kind) : FaultKind::kRefused;
}

}  // namespace

extern "C" {

void VanzetReportFault(const char* text, const char* file, std::int32_t line, std::int32_t column,
                       const char* source, std::int32_t kind) {
  Host* const host = CurrentHost();
  if (host == nullptr) return;
  try {
    host->panel.Tell({.text = std::string(TextOf(text)),
                      .file = std::string(TextOf(file)),
                      .line = line,
                      .column = column,
                      .kind = KindOf(kind),
                      .source = std::string(TextOf(source))});
  } catch (...) {
    ReportException(*host, "VanzetReportFault");
  }
}

std::int32_t VanzetEventHandled() {
  Host* const host = CurrentHost();
  if (host == nullptr || !host->keepEvent) return 1;
  try {
    return host->keepEvent() ? 1 : 0;
  } catch (...) {
    ReportException(*host, "VanzetEventHandled");
    return 0;
  }
}

std::int32_t VanzetHasFailed() {
  const Host* const host = CurrentHost();
  return host != nullptr && host->panel.HasLastingCause() ? 1 : 0;
}
}
