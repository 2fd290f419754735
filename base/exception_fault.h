#pragma once

#include "base/result.h"

namespace vanzet {

/// The exception that is being handled, as a fault: "out of memory", or what the exception says.
/// Requires: it is called in a handler.
Fault FaultOfException();

}  // namespace vanzet
