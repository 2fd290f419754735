#include <system_error>

#include "base/files/system_fault.h"

namespace vanzet::files {

std::string SystemReason(int error) {
  return std::generic_category().message(error);
}

Fault SystemFault(const std::string& what, int error, const std::filesystem::path& file) {
  return {.text = what + ": " + SystemReason(error), .file = file.string(), .kind = FaultKind::kSystem};
}

Fault SystemFault(const std::string& what, const std::error_code& error, const std::filesystem::path& file) {
  return {.text = what + ": " + error.message(), .file = file.string(), .kind = FaultKind::kSystem};
}

}  // namespace vanzet::files
