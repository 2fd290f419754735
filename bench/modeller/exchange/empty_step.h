#pragma once

#include <StepData_StepModel.hxx>
#include <string>

namespace vanzet::modeller {

/// The reason for which a STEP file has no faces, as the end of a sentence: ": its parts are in other files,
/// the first in 'part.stp'". Empty where nothing is known.
std::string ReasonForNoBody(const Handle(StepData_StepModel) & model);

}  // namespace vanzet::modeller
