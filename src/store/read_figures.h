#pragma once

#include <string>

#include "store/mill_turn_vdm.h"

namespace vanzet {

/// Reads the names of two figures from the position of an open VDM on. The item "0", as a definition has it
/// where no figure is given, reads as the empty name.
inline void ReadFigures(OrvoApi::MillTurnVdm& vdm, std::string& outside, std::string& inside) {
  for (std::string* const figure : {&outside, &inside}) {
    vdm.SingleGet(*figure);
    if (*figure == "0") figure->clear();
  }
}

}  // namespace vanzet
