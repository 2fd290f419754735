#include "view/script/script_commands.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "base/numbers.h"
#include "view/script/names.h"

namespace vanzet::view {
namespace {

/// The control of a word. Fails when it does not exist or cannot be used now.
Result<const Control*> ControlIn(const DialogState& state, const ScriptWord& word) {
  const Control* const found = FindControl(state, word.text);
  if (found == nullptr) return Fault{"unknown control '" + word.text + "'" + NearControls(state, word.text)};
  if (!found->isVisible) return Fault{"control " + word.text + " is hidden"};
  if (!found->isEnabled) return Fault{"control " + word.text + " is disabled"};
  return found;
}

Result<void> Select(Dialog& dialog, const ScriptLine& line) {
  VANZET_TRY(const std::int32_t node, NodeIn(dialog.State(), line[1]));
  dialog.SelectNode(node);
  return {};
}

Result<void> SetCheck(Dialog& dialog, const Control& control, const std::string& value) {
  if (value != "0" && value != "1") return Fault{"a check box takes 0 or 1, not '" + value + "'"};
  dialog.SetChecked(control.id, value == "1");
  return {};
}

Result<void> SetSpin(Dialog& dialog, const Control& control, const std::string& value) {
  const std::optional<std::int32_t> number = WholeInteger(value);
  if (!number || *number < control.least || *number > control.most) {
    return Fault{"this spin takes " + std::to_string(control.least) + " to " + std::to_string(control.most) +
                 ", not '" + value + "'"};
  }
  dialog.SetValue(control.id, *number);
  return {};
}

Result<void> Set(Dialog& dialog, const ScriptLine& line) {
  VANZET_TRY(const Control* const control, ControlIn(dialog.State(), line[1]));
  const std::string& value = line[2].text;
  switch (control->kind) {
    case ControlKind::kEdit:
    case ControlKind::kCombo: dialog.SetText(control->id, value); return {};
    case ControlKind::kCheck: return SetCheck(dialog, *control, value);
    case ControlKind::kSpin: return SetSpin(dialog, *control, value);
    default: return Fault{"control " + line[1].text + " takes no value"};
  }
}

/// The index of an entry: a number without quotes, or the entry's exact text.
Result<std::int32_t> EntryOf(const Control& combo, const ScriptWord& word) {
  const auto count = static_cast<std::int32_t>(combo.items.size());
  const std::optional<std::int32_t> index = word.isQuoted ? std::nullopt : WholeInteger(word.text);
  if (index && *index >= -1 && *index < count) return *index;
  const auto entry = std::ranges::find(combo.items, word.text);
  if (!index && entry != combo.items.end()) return static_cast<std::int32_t>(entry - combo.items.begin());
  return Fault{"'" + word.text + "' is not one of the " + std::to_string(count) + " entries"};
}

Result<void> Choose(Dialog& dialog, const ScriptLine& line) {
  VANZET_TRY(const Control* const control, ControlIn(dialog.State(), line[1]));
  if (control->kind != ControlKind::kCombo) return Fault{"control " + line[1].text + " is not a combo"};
  VANZET_TRY(const std::int32_t entry, EntryOf(*control, line[2]));
  dialog.Choose(control->id, entry);
  return {};
}

Result<void> Press(Dialog& dialog, const ScriptLine& line) {
  VANZET_TRY(const Control* const control, ControlIn(dialog.State(), line[1]));
  if (control->kind != ControlKind::kButton) return Fault{"control " + line[1].text + " is not a button"};
  dialog.Press(control->id);
  return {};
}

Result<void> Close(Dialog& dialog, const ScriptLine& /*line*/) {
  dialog.Close();
  return {};
}

struct Command {
  std::string_view word;
  std::string_view arguments;  ///< for faults
  std::size_t words;           ///< with the command itself
  Result<void> (*run)(Dialog&, const ScriptLine&);
};

// clang-format off
constexpr Command kCommands[] = {
    {"choose", "CONTROL N or CONTROL \"TEXT\"", 3, Choose},
    {"close",  "no arguments",                  1, Close},
    {"press",  "CONTROL",                       2, Press},
    {"select", "NODE",                          2, Select},
    {"set",    "CONTROL VALUE",                 3, Set},
};
// clang-format on

}  // namespace

Result<std::int32_t> NodeIn(const DialogState& state, const ScriptWord& word) {
  const std::optional<std::int32_t> id = NodeId(word.text);
  if (!id || std::ranges::find(state.tree, *id, &TreeNode::id) == state.tree.end()) {
    return Fault{"node '" + word.text + "' is not in the tree" + NearNodes(state, word.text)};
  }
  return *id;
}

Result<void> RunOnDialog(Dialog& dialog, const ScriptLine& line) {
  const std::string& word = line.front().text;
  const auto* const command = std::ranges::find(kCommands, word, &Command::word);
  if (command == std::end(kCommands)) return Fault{"unknown command '" + word + "'"};
  if (line.size() != command->words) {
    return Fault{"'" + word + "' takes " + std::string(command->arguments)};
  }
  return command->run(dialog, line);
}

}  // namespace vanzet::view
