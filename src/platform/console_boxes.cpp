#include "platform/console_boxes.h"

#include <iostream>

namespace vanzet::platform {

std::int32_t ConsoleBoxes::Present(const MessageBox& message) {
  const std::int32_t given = SafeAnswer(message.type);
  std::string line = message.caption.empty() ? message.text : message.caption + ": " + message.text;
  if (IsQuestion(message.type)) line += given == answer::kNo ? " [No]" : " [Cancel]";
  std::cerr << line + "\n" << std::flush;
  return given;
}

}  // namespace vanzet::platform
