#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "define/json.h"

namespace vanzet::define {

/// What a person would do for one record of a form: lines of a script, the first of which selects a node,
/// and the picks that they ask for.
struct Step {
  std::string path;
  std::vector<std::string> lines;
  std::vector<std::string> picks = {};
};

/// The steps that give the form's values to a dialog over new definitions. Spurs are done from the last to
/// the first, so that what the first one's billets draw is what stays in the drawing; what a spur had drawn
/// before, as its place in the form `former` tells, and has no more, is deleted. OK is not pressed.
/// Requires: `CheckForm` refused nothing.
std::vector<Step> StepsOf(const Json& form, const Json& former, bool hasSubSpindle, bool hasSpurs);

/// The step behind them: OK.
Step OkStep();

/// A script with the lines of steps behind comments that name their paths, and whose each line is.
struct Script {
  std::string text;
  std::string picks;
  std::vector<std::size_t> stepOfLine;  ///< of the lines from 1; entry 0 is nobody's
};
Script ScriptOf(const std::vector<Step>& steps);

/// The catalogue that the dialog is to be played with: the form's own devices, and nothing else.
std::string CatalogueText(const Json& form);

}  // namespace vanzet::define
