#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "define/json.h"

namespace vanzet::define {

/// A device of the catalogue, from which the dialog chooses it by its name.
struct NamedDevice {
  std::string name;
  std::int32_t type;
  std::string values;  ///< the line of the catalogue with the type and the letters
};

/// The actions in the dialog for one record of a form: lines of a script, the first of which selects a node,
/// and the picks that they ask for.
struct Step {
  std::string path;
  std::vector<std::string> lines;
  std::vector<std::string> picks = {};
  std::optional<NamedDevice> device = std::nullopt;
  bool entersSpur = false;  ///< the steps after it are those of the spur that it selects
};

/// The steps that enter the form's values into a dialog on new definitions. Spurs are done from the last to
/// the first, so that the drawing ends with the billets of the first one. A billet or datum that a spur has
/// in the form `former` but no longer has is deleted, so that its drawing goes. OK is not pressed.
/// Requires: `CheckForm` refused nothing.
std::vector<Step> StepsOf(const Json& form, const Json& former, bool hasSubSpindle, bool hasSpurs);

/// The steps in the order of the dialogs that play them. The dialog knows devices by their names alone: the
/// second of two devices of different types with one name begins another dialog, with its spur.
std::vector<std::vector<Step>> PlaysOf(const std::vector<Step>& steps);

/// A catalogue with only the devices of these steps, for playing them.
std::string CatalogueText(const std::vector<Step>& steps);

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
