#pragma once

#include <string>

#include "base/length_unit.h"
#include "view/dialog_state.h"

/// Lengths as a drawn dialog shows and takes them. The dialog itself, and all that is stored, has
/// millimetres.
namespace vanzet::view {

/// Inches where the environment variable VANZET_UNIT is "inch", else millimetres.
LengthUnit ShownUnit();

/// The dialog's text for what a person typed. A text that is not a number stays as it is.
std::string DialogText(const std::string& typed, LengthUnit unit);

/// The text that an edit shows for its control while it has the focus: what was typed, as long as it means
/// the same number, else every digit.
std::string EditedText(const Control& control, const std::string& typed, LengthUnit unit);

/// The text that it shows otherwise: four decimals at most. A number has the decimal sign of the language.
std::string RestingText(const Control& control, LengthUnit unit);

/// The text of a number with four decimals at most; any other text stays as it is.
std::string Shortened(const std::string& text);

/// A length of millimetres as labels show it, in the unit of the moment.
std::string LengthLabel(double millimetres);

}  // namespace vanzet::view
