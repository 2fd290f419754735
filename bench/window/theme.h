#pragma once

#include <QColor>
#include <QIcon>
#include <QPalette>

class QApplication;

namespace vanzet::window {

enum class Appearance { kLight, kDark };

/// Sets the colours, the style and the spacing of the whole program.
void ApplyAppearance(QApplication& application, Appearance appearance);

/// The appearance that a palette has, such as that of the system.
Appearance AppearanceOf(const QPalette& palette);

/// Colours of the two views, which follow the palette that they are shown with.
struct ViewColours {
  QColor background, grid, gridStrong, axis, text, faint, accent, warning;
};
const ViewColours& ColoursFor(const QPalette& palette);

/// A colour that was chosen for white paper: on a dark ground as bright as it is dark on a light one.
QColor OnGround(const QColor& colour, const QPalette& palette);

/// The icon of a name, drawn in the colours of the palette that it is shown with; sharp at every size. An
/// unknown name gives an empty icon.
QIcon MakeIcon(const char* name);

}  // namespace vanzet::window
