#pragma once

#include <string>
#include <vector>

#include "define/events.h"
#include "define/json.h"

namespace vanzet::define {

/// What the dialog refused of a script that was played, as its transcript tells it: boxes that came up and
/// lines that could not be done, each with the path of the step that it belongs to; "$" where there is none.
/// Boxes before the first step are about the machine or the project, and no refusals.
Refusals RefusedBy(const std::string& transcript, const std::vector<Step>& steps, const Script& script);

/// What a form asks for and `stored`, the form of what became of it, has otherwise. Numbers are compared by
/// the six decimals that a definition keeps. What is stored besides is not looked at.
Refusals Differences(const Json& form, const Json& stored);

}  // namespace vanzet::define
