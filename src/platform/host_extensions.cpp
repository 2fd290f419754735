#include "platform/host_extensions.h"

#include <cstdint>

#include "platform/symbols.h"

namespace vanzet::platform {

ExtensionFinder extensionFinder = FindSymbol;

void ReportFault(const Fault& fault) {
  using Function = void (*)(const char* text, const char* file, std::int32_t line, std::int32_t column,
                            const char* source, std::int32_t kind);
  auto* const report = reinterpret_cast<Function>(extensionFinder(nullptr, "VanzetReportFault"));
  if (report == nullptr) return;
  report(fault.text.c_str(), fault.file.c_str(), fault.line, fault.column, fault.source.c_str(),
         static_cast<std::int32_t>(fault.kind));
}

bool KeepWorkOfEvent() {
  using Function = std::int32_t (*)();
  auto* const keep = reinterpret_cast<Function>(extensionFinder(nullptr, "VanzetEventHandled"));
  return keep == nullptr || keep() != 0;
}

bool HasHostFailed() {
  using Function = std::int32_t (*)();
  auto* const hasFailed = reinterpret_cast<Function>(extensionFinder(nullptr, "VanzetHasFailed"));
  return hasFailed != nullptr && hasFailed() != 0;
}

}  // namespace vanzet::platform
