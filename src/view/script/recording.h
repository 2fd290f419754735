#pragma once

#include <cstdint>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "view/dialog.h"

namespace vanzet::view {

/// The happenings during one event of the dialog that a script has to know of.
struct Happenings {
  std::vector<std::string> answers;     ///< lines: "answer yes", "file \"/a.vdm\""
  std::optional<std::int32_t> command;  ///< chosen from a menu
  bool hasPicked = false;               ///< the dialog hid for a pick in the drawing
};

/// A script that grows while a person works. Each line is flushed, so that a crash keeps the lines before it.
///
/// Values   of one control that follow each other are one line, that of the last one
/// Errors   the first line that cannot be written is reported to the host; later ones are dropped
class Recording {
 public:
  /// Replaces the file.
  explicit Recording(const std::string& file);
  ~Recording() { WriteValue(); }
  Recording(const Recording&) = delete;
  Recording& operator=(const Recording&) = delete;

  /// Adds an event.
  void Add(const std::string& line);

  /// Adds the value of a control: "set CONTROL" and the value.
  void AddValue(const std::string& setting, const std::string& value);

 private:
  void Write(const std::string& line);
  void WriteValue();

  std::string name_;
  std::ofstream file_;
  std::string setting_, value_;  ///< the value that is not written yet; empty: none
  bool isComplete_ = true;
};

/// A word of a script in quotes.
std::string QuotedScriptWord(std::string_view text);

/// Passes events on to a dialog and records them.
class RecordingDialog final : public Dialog {
 public:
  RecordingDialog(Dialog& dialog, Recording& recording, Happenings& happenings)
      : dialog_(dialog), recording_(recording), happenings_(happenings) {}

  const DialogState& State() override { return dialog_.State(); }
  bool IsOpen() const override { return dialog_.IsOpen(); }
  std::int32_t Result() const override { return dialog_.Result(); }
  void SelectNode(std::int32_t node) override;
  void ContextAt(std::int32_t node) override;
  void SetText(std::int32_t control, const std::string& text) override;
  void SetChecked(std::int32_t control, bool isChecked) override;
  void SetValue(std::int32_t control, std::int32_t value) override;
  void Choose(std::int32_t control, std::int32_t index) override;
  void Press(std::int32_t button) override;
  void Close() override;

 private:
  /// Writes the line of an event that has happened, after the answers that it needs.
  void Record(const std::string& line);
  void RecordPick(const std::vector<Control>& before);

  /// The word of a control in a script: its name, or its id where that names another control.
  std::string WordOf(std::int32_t control);

  Dialog& dialog_;
  Recording& recording_;
  Happenings& happenings_;
};

}  // namespace vanzet::view
