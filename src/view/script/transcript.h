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
class Transcript {
 public:
  /// Writes to the file, from its start. Writes to standard output when the name is empty, or when the file
  /// cannot be written, which is reported on standard error.
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

 private:
  void Write(const std::string& object);

  std::unique_ptr<std::ostream> file_;
};

}  // namespace vanzet::view
