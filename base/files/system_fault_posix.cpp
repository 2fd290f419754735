#include <cstring>

#include "base/files/system_fault.h"

namespace vanzet::files {

std::string SystemReason(int error) {
  const char* reason = strerrordesc_np(error);
  return reason != nullptr ? reason : "error " + std::to_string(error);
}

Fault SystemFault(const std::string& what, int error, const std::filesystem::path& file) {
  return {.text = what + ": " + SystemReason(error), .file = file.string(), .kind = FaultKind::kSystem};
}

Fault SystemFault(const std::string& what, const std::error_code& error, const std::filesystem::path& file) {
  return SystemFault(what, error.value(), file);
}

}  // namespace vanzet::files
