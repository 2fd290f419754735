#pragma once

#include <string>
#include <vector>

#include "define/json.h"

namespace vanzet::define {

/// The changes from the equipment that is defined to that of a form, for people: a line for each record that
/// is new, changed or removed, or that nothing changes.
///
///   spur 0, main chuck: name "Chuck 160" -> "Chuck 210"; A 80 -> 105
///
/// `former` is the form of what is defined for the same spurs.
/// Requires: `CheckForm` refused nothing.
std::vector<std::string> ChangesOf(const Json& form, const Json& former);

}  // namespace vanzet::define
