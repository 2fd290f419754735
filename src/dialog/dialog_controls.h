#pragma once

#include <span>

#include "dialog/controls.h"

namespace vanzet::dialog {

/// The dialog's own controls, without the tree.
std::span<const ControlTemplate> DialogTemplate();

}  // namespace vanzet::dialog
