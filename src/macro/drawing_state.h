#pragma once

#include <string>
#include <string_view>

/// The state of the host's drawing that a generator sets and puts back.
namespace vanzet::macro {

/// Readies the host for a drawing of ours in the plane of turning.
void BeginTurningDrawing();

/// The name of the layer that is current now.
std::string CurrentLayer();

/// Makes a layer current; the host makes it when it is not there.
void ChangeLayer(std::string_view name);

}  // namespace vanzet::macro
