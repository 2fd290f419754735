#pragma once

#include <string_view>

#include "scene/scene.h"

namespace vanzet::show {

/// A part of the equipment.
enum class Part { kNone, kClamp, kJaw, kBillet, kFinishPart, kCenter, kSteadyRest, kDatum };

/// The part that a body is made of.
Part PartOf(scene::Kind kind);

/// The word of programs for a part: "clamp", "finished_part". Empty: of none.
std::string_view WordOf(Part part);

/// kNone for any other word.
Part PartNamed(std::string_view word);

}  // namespace vanzet::show
