#pragma once

#include <StepData_StepModel.hxx>
#include <vector>

#include "modeller/named_place.h"

namespace vanzet::modeller {

/// The coordinate systems with a name among the items of a STEP model's representations, in its order: those of
/// roots, as those of the parts of an assembly are where the assembly puts them. Each once by its name.
/// Requires: the model was transferred, which settles its unit
std::vector<NamedPlace> NamedPlacesOf(const Handle(StepData_StepModel) & model);

}  // namespace vanzet::modeller
