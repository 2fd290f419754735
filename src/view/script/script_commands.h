#pragma once

#include "base/result.h"
#include "view/dialog.h"
#include "view/script/script.h"

namespace vanzet::view {

/// Runs one line on an open dialog: select, set, choose, press or close. A line that fails changes nothing.
Result<void> RunOnDialog(Dialog& dialog, const ScriptLine& line);

/// The node that a word of a script names, by id or by name. Fails when the tree does not have that node.
Result<std::int32_t> NodeIn(const DialogState& state, const ScriptWord& word);

}  // namespace vanzet::view
