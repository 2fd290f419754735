#include <cstdlib>

#include "base/files/environment.h"

namespace vanzet::files {

std::string EnvironmentText(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

}  // namespace vanzet::files
