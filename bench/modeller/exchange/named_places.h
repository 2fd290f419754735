#pragma once

#include <StepData_StepModel.hxx>
#include <StepGeom_Axis2Placement3d.hxx>
#include <vector>

#include "modeller/named_place.h"

namespace vanzet::modeller {

/// Coordinate systems of a STEP model.
using NamedPlacements = std::vector<Handle(StepGeom_Axis2Placement3d)>;

/// The coordinate systems with a name among the items of a model's representations, in its order: those of
/// roots, as those of the parts of an assembly are where the assembly puts them. Each once by its name. Those
/// after the first item of a shape are taken out of its items: Open CASCADE would move the shape there.
/// Requires: the model is not transferred yet
NamedPlacements TakeNamedPlacements(const Handle(StepData_StepModel) & model);

/// The same in millimetres.
/// Requires: the model was transferred, which settles its unit
std::vector<NamedPlace> PlacesOf(const NamedPlacements& placements);

}  // namespace vanzet::modeller
