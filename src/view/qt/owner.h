#pragma once

class QWidget;

namespace vanzet::view::qt {

/// The widget that a window's handle is: the host's main window where the host is one of Qt, the dialog's
/// own. Null for a handle that is none of this process's widgets.
QWidget* WidgetOf(void* handle);

}  // namespace vanzet::view::qt
