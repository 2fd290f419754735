#pragma once

#include <QString>

#include "base/length_unit.h"
#include "view/dialog_state.h"

/// Lengths as the drawn dialog shows and takes them. The dialog itself, and all that is stored, has
/// millimetres.
namespace vanzet::view::qt {

/// Inches where the environment variable VANZET_UNIT is "inch", else millimetres.
LengthUnit ShownUnit();

/// The dialog's text for what a person typed. A text that is not a number stays as it is.
std::string DialogText(const QString& typed, LengthUnit unit);

/// The text that an edit shows for its control: what was typed, as long as it means the same length.
QString ShownText(const Control& control, const QString& typed, LengthUnit unit);

}  // namespace vanzet::view::qt
