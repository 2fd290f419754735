#pragma once

#include <string>

#include "view/dialog_state.h"

namespace vanzet::view {

/// The event "state" of a transcript: docs/formats/script.md.
std::string StateJson(const DialogState& state);

}  // namespace vanzet::view
