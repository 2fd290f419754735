#pragma once

class QWidget;

namespace vanzet::view::qt {

/// How large and heavy a text is, measured by the font of the system.
enum class Type { kTitle, kGroup, kLetter };

void SetFont(QWidget& widget, Type type);

}  // namespace vanzet::view::qt
