#pragma once

#include <cstdint>

#include "machine/pp_def_ini.h"

/// The dialog's work on whole definitions: OK, save and load.
namespace vanzet::dialog {

/// Makes the simulation data of the clamp devices of every spur again.
///
/// In each spur first the main spindle, then the place of the sub spindle, also on a machine without one: a
/// center is kept there then. The center's own place follows only on a machine with both a sub spindle and a
/// tailstock.
void CommitDefinitions(PpDefIni& machine);

/// Asks for a file and has the host save the definition of spur 0 there, whichever spur is shown.
/// `window` owns the question.
void SaveConfiguration(void* window);

/// Asks for a file and has the host load the definition of spur 0 from there. False when the user cancels or
/// keeps the definition that exists. `window` owns the questions.
bool LoadConfiguration(void* window);

/// Draws the billets and marks of a definition that was just loaded. `currentSpindle` is that of the tree's
/// selection.
void DrawLoadedBillets(std::int32_t spur, std::int32_t currentSpindle, PpDefIni& machine);

}  // namespace vanzet::dialog
