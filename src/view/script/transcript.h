#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_dialog.h"
#include "platform/message_box.h"
#include "view/dialog_view.h"

namespace vanzet::view {

/// The events of a script, one JSON object a line. Each line is flushed, so that a crash keeps the lines
/// before it. The forms: docs/formats/script.md.
///
/// Errors   the first line that cannot be written is reported to the host; later ones are dropped
class Transcript {
 public:
  /// Writes to the file, from its start. Writes to standard output when the name is empty, or when the file
  /// cannot be opened, which is reported on standard error and to the host.
  explicit Transcript(const std::string& file);

  void Box(const platform::MessageBox& message, std::int32_t answer);
  void FileDialog(const platform::FileQuestion& question, const std::optional<std::string>& result);
  void Popup(std::int32_t node, const std::vector<PopupEntry>& entries, std::optional<std::int32_t> chosen);
  void Visible(bool isVisible);
  void Focus(std::int32_t control, bool selectsAll);
  void State(const DialogState& state);
  void Closed(std::string_view by);

  /// `line` is that of the script; 0 when the failure belongs to no line.
  void Error(int line, std::string_view text);

  /// False when lines are missing because they could not be written.
  bool IsComplete() const { return isComplete_; }

 private:
  void Write(const std::string& object);

  std::string name_;                    ///< of the file; empty: standard output
  std::unique_ptr<std::ostream> file_;  ///< null: standard output
  bool isComplete_ = true;
};

}  // namespace vanzet::view
