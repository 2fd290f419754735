#include "view/script/recording.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "base/files/system_fault.h"
#include "platform/files.h"
#include "platform/host_extensions.h"
#include "view/script/names.h"

namespace vanzet::view {
namespace {

constexpr std::string_view kHead = "# What was done in the equipment dialog: vanzet script PROJECT FILE";

bool IsPlain(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '.' || c == '-';
}

/// A word of a script; in quotes unless it is a plain one.
std::string ScriptWordOf(std::string_view text) {
  return !text.empty() && std::ranges::all_of(text, IsPlain) ? std::string(text) : QuotedScriptWord(text);
}

/// The entry of a combo: its text where that names it, else its index.
std::string EntryOf(const Control& combo, std::int32_t index) {
  if (index < 0 || index >= static_cast<std::int32_t>(combo.items.size())) return "-1";
  const auto& text = combo.items[static_cast<std::size_t>(index)];
  const auto first = std::ranges::find(combo.items, text) - combo.items.begin();
  return first == index ? QuotedScriptWord(text) : std::to_string(index);
}

/// The value of a control as `set` takes it; nothing for controls without one.
std::optional<std::string> ValueOf(const Control& control) {
  switch (control.kind) {
    case ControlKind::kEdit:
    case ControlKind::kCombo: return control.text;
    case ControlKind::kCheck: return control.isChecked ? "1" : "0";
    case ControlKind::kSpin: return std::to_string(control.value);
    default: return std::nullopt;
  }
}

}  // namespace

std::string QuotedScriptWord(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c == '\n' ? "\\n" : std::string(1, c);
  }
  return quoted + "\"";
}

Recording::Recording(const std::string& file) : name_(file), file_(platform::FileOf(file), std::ios::binary) {
  Write(std::string(kHead));
}

void Recording::Add(const std::string& line) {
  WriteValue();
  Write(line);
}

void Recording::AddValue(const std::string& setting, const std::string& value) {
  if (setting != setting_) WriteValue();
  setting_ = setting;
  value_ = value;
}

void Recording::WriteValue() {
  if (!setting_.empty()) Write(std::exchange(setting_, "") + " " + ScriptWordOf(value_));
}

void Recording::Write(const std::string& line) {
  if (!isComplete_) return;
  errno = 0;
  file_ << line + "\n" << std::flush;
  if (file_) return;
  isComplete_ = false;
  constexpr const char* kWhat = "the recording cannot be written";
  platform::ReportFault(errno == 0 ? Fault{.text = kWhat, .file = name_, .kind = FaultKind::kSystem}
                                   : files::SystemFault(kWhat, errno, name_));
}

void RecordingDialog::Record(const std::string& line) {
  for (const std::string& answer : std::exchange(happenings_.answers, {})) recording_.Add(answer);
  recording_.Add(line);
}

std::string RecordingDialog::WordOf(std::int32_t control) {
  std::string name = NameOf(control, ControlNames());
  const Control* const named = FindControl(dialog_.State(), name);
  return named != nullptr && named->id == control ? name : std::to_string(control);
}

void RecordingDialog::SelectNode(std::int32_t node) {
  const bool isThere =
      std::ranges::find(dialog_.State().tree, node, &TreeNode::id) != dialog_.State().tree.end();
  dialog_.SelectNode(node);
  if (isThere) Record("select " + NameOf(node, NodeNames()));
}

void RecordingDialog::ContextAt(std::int32_t node) {
  happenings_.command.reset();
  dialog_.ContextAt(node);
  const std::string line = "context " + NameOf(node, NodeNames());
  Record(happenings_.command ? line + " " + NameOf(*happenings_.command, CommandNames()) : line);
}

void RecordingDialog::SetText(std::int32_t control, const std::string& text) {
  const std::string word = WordOf(control);
  dialog_.SetText(control, text);
  recording_.AddValue("set " + word, text);
}

void RecordingDialog::SetChecked(std::int32_t control, bool isChecked) {
  const std::string word = WordOf(control);
  dialog_.SetChecked(control, isChecked);
  recording_.AddValue("set " + word, isChecked ? "1" : "0");
}

void RecordingDialog::SetValue(std::int32_t control, std::int32_t value) {
  const std::string word = WordOf(control);
  dialog_.SetValue(control, value);
  recording_.AddValue("set " + word, std::to_string(value));
}

void RecordingDialog::Choose(std::int32_t control, std::int32_t index) {
  const std::string word = WordOf(control);
  const Control* const combo = FindControl(dialog_.State(), std::to_string(control));
  const std::string entry = combo == nullptr ? std::to_string(index) : EntryOf(*combo, index);
  dialog_.Choose(control, index);
  Record("choose " + word + " " + entry);
}

void RecordingDialog::Press(std::int32_t button) {
  const std::string word = WordOf(button);
  const std::vector<Control> before = dialog_.State().controls;
  happenings_.hasPicked = false;
  dialog_.Press(button);
  if (happenings_.hasPicked) return RecordPick(before);
  Record("press " + word);
}

void RecordingDialog::RecordPick(const std::vector<Control>& before) {
  happenings_.answers.clear();
  for (const Control& control : dialog_.State().controls) {
    const auto former = std::ranges::find(before, control.id, &Control::id);
    const auto value = ValueOf(control);
    if (!value || former == before.end() || ValueOf(*former) == value) continue;
    recording_.AddValue("set " + WordOf(control.id), *value);
  }
}

void RecordingDialog::Close() {
  dialog_.Close();
  Record("close");
}

}  // namespace vanzet::view
