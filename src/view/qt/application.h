#pragma once

#include "base/result.h"

namespace vanzet::view::qt {

/// Makes sure that the process has a QApplication: that of the host if it has one, else one of the view,
/// made at the first call and kept until the process ends.
///
/// Errors   no display answers; the host has an application of Qt that knows no windows
Result<void> EnsureApplication();

}  // namespace vanzet::view::qt
