#pragma once

#include <QIcon>

namespace vanzet::window {

/// The icon of that name, drawn in the colours of the palette that it is shown with; sharp at every size. An
/// unknown name gives no icon.
QIcon IconNamed(const char* name);

}  // namespace vanzet::window
