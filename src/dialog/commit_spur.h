#pragma once

#include <cstdint>

#include "machine/pp_def_ini.h"

namespace vanzet::dialog {

/// Makes the simulation data of what holds the work in one spur anew.
///
/// The main spindle, then the sub spindle's place, also on a machine without one: a centre is kept there
/// then. The centre's own place follows only where there are both a sub spindle and a tailstock.
void CommitSpur(std::int32_t spur, PpDefIni& machine);

}  // namespace vanzet::dialog
