#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "modeller/answers.h"

namespace vanzet::modeller {

/// Reads the face sets of a VRML 2.0 text that has nothing but nodes of the kinds that device texts have, in
/// their usual order: what a module has written needs no program of its own to be read. Any other text gives
/// nothing, also one that is broken: the exchange program reads it, or says what is wrong.
///
/// Shape    as `ReadVrml` of the exchange program
/// Source   docs/formats/device-vrml.md
std::optional<std::vector<NamedMesh>> ReadPlainVrml(std::string_view text);

}  // namespace vanzet::modeller
