#pragma once

#include "base/result.h"

namespace vanzet::view::qt {

/// Sees to it that the process has a QApplication: the host's where it has one, else one of the view's own,
/// made at the first call and kept until the process ends.
///
/// Errors   no display answers; the host has an application of Qt that knows no windows
Result<void> EnsureApplication();

}  // namespace vanzet::view::qt
