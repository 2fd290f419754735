#pragma once

#include <filesystem>
#include <string>
#include <system_error>

#include "base/result.h"

namespace vanzet::files {

/// The reason of the system for an error number, in English whatever the locale, as all faults are.
std::string SystemReason(int error);

/// A fault of the kind `kSystem`: "FILE: what: reason".
Fault SystemFault(const std::string& what, int error, const std::filesystem::path& file = {});
Fault SystemFault(const std::string& what, const std::error_code& error,
                  const std::filesystem::path& file = {});

}  // namespace vanzet::files
