#pragma once

#include <cstring>
#include <string>

namespace vanzet::files {

/// Why the system refused, by its error number; in English whatever the locale, as all faults are.
inline std::string SystemReason(int error) {
  const char* reason = strerrordesc_np(error);
  return reason != nullptr ? reason : "error " + std::to_string(error);
}

}  // namespace vanzet::files
