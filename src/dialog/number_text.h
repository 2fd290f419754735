#pragma once

#include <optional>
#include <string>
#include <string_view>

/// How an edit shows a real, and how one is read from it.
namespace vanzet::dialog {

/// "%.15g", with a point under every locale.
std::string RealText(double value);

/// The other way: an empty text is 0, a decimal comma counts as a point, blanks around the number do not
/// count. Nothing when the text is no finite number.
std::optional<double> RealOf(std::string_view text);

/// "%g": six digits, for texts that name a number.
std::string ShortRealText(double value);

}  // namespace vanzet::dialog
