#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "define/json.h"

namespace vanzet::define {

/// The actions in the dialog for one record of a form: lines of a script, the first of which selects a node,
/// and the picks that they ask for.
struct Step {
  std::string path;
  std::vector<std::string> lines;
  std::vector<std::string> picks = {};
};

/// The steps that enter the form's values into a dialog on new definitions. Spurs are done from the last to
/// the first, so that the drawing ends with the billets of the first one. A billet or datum that a spur has
/// in the form `former` but no longer has is deleted, so that its drawing goes. OK is not pressed.
/// Requires: `CheckForm` refused nothing.
std::vector<Step> StepsOf(const Json& form, const Json& former, bool hasSubSpindle, bool hasSpurs);

/// The step after them: OK.
Step OkStep();

/// A script with the lines of steps, each step after a comment with its path.
struct Script {
  std::string text;
  std::string picks;
  std::vector<std::size_t> stepOfLine;  ///< by line, from 1; entry 0 is not used
};
Script ScriptOf(const std::vector<Step>& steps);

}  // namespace vanzet::define
