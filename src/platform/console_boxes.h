#pragma once

#include "platform/message_box.h"

namespace vanzet::platform {

/// Boxes where nobody can answer: each is a line on standard error, "caption: text", and gets the safe
/// answer, which a question names behind it.
class ConsoleBoxes final : public BoxPresenter {
 public:
  std::int32_t Present(const MessageBox& message) override;
};

}  // namespace vanzet::platform
