#pragma once

#include "base/result.h"
#include "view/dialog.h"
#include "view/script/script.h"

namespace vanzet::view {

/// Does one line on an open dialog: select, set, choose, press, close. A line that cannot be done does
/// nothing, and the fault tells why.
Result<void> RunOnDialog(Dialog& dialog, const ScriptLine& line);

/// The id of a node that is in the tree, from a word of a script.
Result<std::int32_t> NodeIn(const DialogState& state, const ScriptWord& word);

}  // namespace vanzet::view
