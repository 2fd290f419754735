#pragma once

#include <string>

#include "base/result.h"

namespace vanzet::view::qt {

/// The name of a Qt platform that will start here: Qt ends the process where it cannot, so everything that it
/// needs is tried beforehand. The displays that are named have to answer, and the platform's plug-in has to
/// load.
///
/// Which    those of QT_QPA_PLATFORM, in order; without it X where DISPLAY names one, then Wayland
Result<std::string> StartablePlatform();

}  // namespace vanzet::view::qt
