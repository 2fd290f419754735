#include "view/script/script_commands.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "base/numbers.h"

namespace vanzet::view {
namespace {

/// The control of a word, if a person could reach it now.
Result<const Control*> ControlIn(const DialogState& state, const ScriptWord& word) {
  const std::optional<std::int32_t> id = WholeInteger(word.text);
  const Control* found = nullptr;
  for (const auto* list : {&state.dialog, &state.controls}) {
    for (const Control& control : *list) {
      if (id && control.id == *id) found = &control;
    }
  }
  if (found == nullptr) return Fault{"there is no control '" + word.text + "'"};
  if (!found->isVisible) return Fault{"control " + word.text + " is hidden"};
  if (!found->isEnabled) return Fault{"control " + word.text + " is disabled"};
  return found;
}

Result<void> Select(Dialog& dialog, const ScriptLine& line) {
  const auto node = NodeIn(dialog.State(), line[1]);
  if (!node) return node.fault();
  dialog.SelectNode(*node);
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
  const auto control = ControlIn(dialog.State(), line[1]);
  if (!control) return control.fault();
  const std::string& value = line[2].text;
  switch ((*control)->kind) {
    case ControlKind::kEdit:
    case ControlKind::kCombo: dialog.SetText((*control)->id, value); return {};
    case ControlKind::kCheck: return SetCheck(dialog, **control, value);
    case ControlKind::kSpin: return SetSpin(dialog, **control, value);
    default: return Fault{"control " + line[1].text + " takes no value"};
  }
}

/// The index of an entry: a number that stands without quotes, or the entry's exact text.
Result<std::int32_t> EntryOf(const Control& combo, const ScriptWord& word) {
  const auto count = static_cast<std::int32_t>(combo.items.size());
  const std::optional<std::int32_t> index = word.isQuoted ? std::nullopt : WholeInteger(word.text);
  if (index && *index >= -1 && *index < count) return *index;
  const auto entry = std::ranges::find(combo.items, word.text);
  if (!index && entry != combo.items.end()) return static_cast<std::int32_t>(entry - combo.items.begin());
  return Fault{"there is no entry '" + word.text + "' among the " + std::to_string(count)};
}

Result<void> Choose(Dialog& dialog, const ScriptLine& line) {
  const auto control = ControlIn(dialog.State(), line[1]);
  if (!control) return control.fault();
  if ((*control)->kind != ControlKind::kCombo) return Fault{"control " + line[1].text + " is no combo"};
  const auto entry = EntryOf(**control, line[2]);
  if (!entry) return entry.fault();
  dialog.Choose((*control)->id, *entry);
  return {};
}

Result<void> Press(Dialog& dialog, const ScriptLine& line) {
  const auto control = ControlIn(dialog.State(), line[1]);
  if (!control) return control.fault();
  if ((*control)->kind != ControlKind::kButton) return Fault{"control " + line[1].text + " is no button"};
  dialog.Press((*control)->id);
  return {};
}

Result<void> Close(Dialog& dialog, const ScriptLine& /*line*/) {
  dialog.Close();
  return {};
}

struct Command {
  std::string_view word;
  std::string_view arguments;  ///< as a fault tells them
  std::size_t words;           ///< with its own
  Result<void> (*run)(Dialog&, const ScriptLine&);
};

// clang-format off
constexpr Command kCommands[] = {
    {"choose", "CONTROL N or CONTROL \"TEXT\"", 3, Choose},
    {"close",  "nothing behind it",             1, Close},
    {"press",  "CONTROL",                       2, Press},
    {"select", "ID",                            2, Select},
    {"set",    "CONTROL VALUE",                 3, Set},
};
// clang-format on

}  // namespace

Result<std::int32_t> NodeIn(const DialogState& state, const ScriptWord& word) {
  const std::optional<std::int32_t> id = WholeInteger(word.text);
  if (!id || std::ranges::find(state.tree, *id, &TreeNode::id) == state.tree.end()) {
    return Fault{"there is no node '" + word.text + "' in the tree"};
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
