#pragma once

#include <string>
#include <vector>

#include "define/events.h"
#include "define/json.h"

namespace vanzet::define {

/// The refusals of the dialog that a script's transcript reports: boxes that were shown and lines that could
/// not be done, each with the path of its step, or "$". Boxes before the first step are about the machine or
/// the project; they are not refusals.
Refusals RefusedBy(const std::string& transcript, const std::vector<Step>& steps, const Script& script);

/// The differences between a form and `stored`, the form of the definition that was made from it. Numbers are
/// compared by the six decimals that a definition keeps. Further stored values do not count.
Refusals Differences(const Json& form, const Json& stored);

}  // namespace vanzet::define
