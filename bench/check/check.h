#pragma once

#include <vector>

#include "check/setup.h"

namespace vanzet::check {

/// The findings about a set-up, in the order of the rules; docs/checks/README.md says what each rule
/// compares, and how.
/// Fails only for a reason of the system, and when the work is cancelled.
/// Requires: the geometry library works in millimetres
Result<std::vector<Finding>> Check(const Setup& setup);

}  // namespace vanzet::check
