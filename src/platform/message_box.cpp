#include "platform/message_box.h"

#include <iostream>

#include "base/one_line.h"
#include "platform/host_extensions.h"

namespace vanzet::platform {
namespace {

/// The bits of a box type for its buttons; the bits above are the icon.
constexpr std::int32_t kButtons = 0xF;

ConsoleBoxes consoleBoxes;
BoxPresenter* currentPresenter = &consoleBoxes;

}  // namespace

bool IsQuestion(std::int32_t type) {
  return (type & kButtons) != box::kOk;
}

std::int32_t SafeAnswer(std::int32_t type) {
  if (!IsQuestion(type)) return answer::kOk;
  return (type & kButtons) == box::kYesNo ? answer::kNo : answer::kCancel;
}

std::int32_t Show(const MessageBox& message) {
  return currentPresenter->Present(message);
}

std::int32_t ConsoleBoxes::Present(const MessageBox& message) {
  const std::int32_t given = SafeAnswer(message.type);
  if (!IsQuestion(message.type) && HasHostFailed()) return given;
  std::string line = message.caption.empty() ? message.text : message.caption + ": " + message.text;
  if (IsQuestion(message.type)) line += given == answer::kNo ? " [No]" : " [Cancel]";
  std::cerr << OneLine(line) + "\n" << std::flush;
  return given;
}

PresenterScope::PresenterScope(BoxPresenter& presenter) : former_(currentPresenter) {
  currentPresenter = &presenter;
}

PresenterScope::~PresenterScope() {
  currentPresenter = former_;
}

}  // namespace vanzet::platform
