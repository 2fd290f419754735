#include "window/views/mouse_style.h"

#include <algorithm>

namespace vanzet::window {
namespace {

// clang-format off
constexpr MouseStyleRow kStyles[] = {
    { MouseStyle::kLeftTurns,   "left",   Text::kLeftTurns },
    { MouseStyle::kMiddleTurns, "middle", Text::kMiddleTurns },
    { MouseStyle::kRightTurns,  "right",  Text::kRightTurns },
};

/// A row with keys is before the row without.
struct DragRow {
  MouseStyle style;
  Qt::MouseButton button;
  Qt::KeyboardModifier key;
  DragDeed deed;
};
constexpr DragRow kDrags[] = {
    { MouseStyle::kLeftTurns,   Qt::LeftButton,   Qt::ShiftModifier,   DragDeed::kMove },
    { MouseStyle::kLeftTurns,   Qt::LeftButton,   Qt::NoModifier,      DragDeed::kTurn },
    { MouseStyle::kLeftTurns,   Qt::MiddleButton, Qt::NoModifier,      DragDeed::kMove },
    { MouseStyle::kLeftTurns,   Qt::RightButton,  Qt::NoModifier,      DragDeed::kMove },
    { MouseStyle::kMiddleTurns, Qt::MiddleButton, Qt::ShiftModifier,   DragDeed::kMove },
    { MouseStyle::kMiddleTurns, Qt::MiddleButton, Qt::ControlModifier, DragDeed::kZoom },
    { MouseStyle::kMiddleTurns, Qt::MiddleButton, Qt::NoModifier,      DragDeed::kTurn },
    { MouseStyle::kRightTurns,  Qt::RightButton,  Qt::ControlModifier, DragDeed::kZoom },
    { MouseStyle::kRightTurns,  Qt::RightButton,  Qt::NoModifier,      DragDeed::kTurn },
    { MouseStyle::kRightTurns,  Qt::MiddleButton, Qt::NoModifier,      DragDeed::kMove },
};
// clang-format on

}  // namespace

std::span<const MouseStyleRow> MouseStyles() {
  return kStyles;
}

MouseStyle MouseStyleNamed(const QString& name) {
  const auto* const row = std::ranges::find_if(
      kStyles, [&](const MouseStyleRow& style) { return name == QLatin1StringView(style.name); });
  return row == std::end(kStyles) ? MouseStyle::kLeftTurns : row->style;
}

const char* NameOf(MouseStyle style) {
  return std::ranges::find(kStyles, style, &MouseStyleRow::style)->name;
}

DragDeed DeedOf(MouseStyle style, Qt::MouseButtons buttons, Qt::KeyboardModifiers keys) {
  const auto* const row = std::ranges::find_if(kDrags, [&](const DragRow& drag) {
    const bool hasKey = drag.key == Qt::NoModifier || keys.testFlag(drag.key);
    return drag.style == style && buttons == drag.button && hasKey;
  });
  return row == std::end(kDrags) ? DragDeed::kNothing : row->deed;
}

}  // namespace vanzet::window
