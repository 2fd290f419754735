#include "platform/message_box.h"

#include "platform/console_boxes.h"

namespace vanzet::platform {
namespace {

/// The buttons of a box type; what stands above these bits is the icon.
constexpr std::int32_t kButtons = 0xF;

ConsoleBoxes consoleBoxes;
BoxPresenter* presenterOfTheMoment = &consoleBoxes;

}  // namespace

bool IsQuestion(std::int32_t type) {
  return (type & kButtons) != box::kOk;
}

std::int32_t SafeAnswer(std::int32_t type) {
  if (!IsQuestion(type)) return answer::kOk;
  return (type & kButtons) == box::kYesNo ? answer::kNo : answer::kCancel;
}

std::int32_t Show(const MessageBox& message) {
  return presenterOfTheMoment->Present(message);
}

PresenterScope::PresenterScope(BoxPresenter& presenter) : former_(presenterOfTheMoment) {
  presenterOfTheMoment = &presenter;
}

PresenterScope::~PresenterScope() {
  presenterOfTheMoment = former_;
}

}  // namespace vanzet::platform
