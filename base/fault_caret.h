#pragma once

#include <string>

#include "base/result.h"

namespace vanzet {

/// The faulty line of a text file with a caret under the column, for a terminal or a panel with a fixed-width
/// font; each of the two lines is indented and has a line end. Empty when the fault has no line or no column.
///
///     bar.txt:2:5: expected a number, found 'y'
///       x1 yy
///           ^
///
/// Units    `Fault::column` counts bytes, from 1; a column after the end of the line is allowed
/// Shape    tabs are kept in both lines, other control characters are escaped as `OneLine` escapes them,
///          bytes that are not UTF-8 become U+FFFD; of a long line only the part around the column is shown
std::string CaretText(const Fault& fault);

}  // namespace vanzet
