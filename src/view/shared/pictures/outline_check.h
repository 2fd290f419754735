#pragma once

#include <vector>

#include "devices/outline.h"

namespace vanzet::view {

/// True for a closed outline of finite vertices that encloses something and whose sides meet nowhere but at
/// their common ends.
bool IsSimple(const std::vector<OutlineVertex>& outline);

}  // namespace vanzet::view
