#pragma once

#include <string>

namespace vanzet::files {

/// The value of a variable of the environment as the process has it now; empty without one. On Windows it is
/// UTF-8, and what the host has set is seen whatever C library it uses.
std::string EnvironmentText(const char* name);

}  // namespace vanzet::files
