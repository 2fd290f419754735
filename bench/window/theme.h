#pragma once

#include <QColor>
#include <QPalette>

class QApplication;

namespace vanzet::window {

enum class Appearance { kLight, kDark };

/// Colours, style and spacing of the whole program.
void Dress(QApplication& application, Appearance appearance);

/// What the screen says at the start of the program.
Appearance AppearanceOf(const QPalette& palette);

/// Colours of the two views, which follow the palette that they are shown with.
struct ViewColours {
  QColor background, grid, gridStrong, axis, text, faint, accent, warning;
};
const ViewColours& ColoursFor(const QPalette& palette);

/// A colour that was chosen for white paper, as bright on a dark ground as it is dark on a light one.
QColor OnGround(const QColor& colour, const QPalette& palette);

}  // namespace vanzet::window
