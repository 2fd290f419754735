#pragma once

#include <memory>

#include "base/result.h"
#include "view/view.h"

namespace vanzet::view {

/// The view on the display of this system; null where the process has no display.
/// Errors   why the display or what draws on it does not work
Result<std::unique_ptr<View>> NativeView();

}  // namespace vanzet::view
