#pragma once

#include <QString>
#include <Qt>
#include <span>

#include "window/texts.h"

namespace vanzet::window {

/// The effect of a drag in the equipment.
enum class DragDeed { kNothing, kTurn, kMove, kZoom };

/// The buttons by which a person turns, moves and zooms the equipment; the wheel zooms in all styles, and a
/// click of the left button selects.
enum class MouseStyle { kLeftTurns, kMiddleTurns, kRightTurns };

struct MouseStyleRow {
  MouseStyle style;
  const char* name;  ///< in the settings of the person
  Text text;         ///< what the buttons do
};

/// All styles; the first is the usual one.
std::span<const MouseStyleRow> MouseStyles();

/// The style of a name; the usual one for a name that none has.
MouseStyle MouseStyleNamed(const QString& name);
const char* NameOf(MouseStyle style);

/// The effect of a drag with these buttons and keys.
DragDeed DeedOf(MouseStyle style, Qt::MouseButtons buttons, Qt::KeyboardModifiers keys);

}  // namespace vanzet::window
