#pragma once

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>

#include "platform/message_box.h"

namespace vanzet::view {

/// What happened while a script served, one JSON object a line, each line flushed: a program that dies
/// leaves what it got to.
class Transcript {
 public:
  /// Writes to the file, from its start; to standard output when the name is empty or the file cannot be
  /// written, which standard error then tells.
  explicit Transcript(const std::string& file);

  void Box(const platform::MessageBox& message, std::int32_t answer);

  /// `line` is that of the script, 0 when no line is to blame.
  void Error(int line, std::string_view text);

 private:
  void Write(const std::string& object);

  std::unique_ptr<std::ostream> file_;
};

/// The text as a JSON string, quotes included. Bytes from 0x80 up pass as they are.
std::string JsonString(std::string_view text);

}  // namespace vanzet::view
