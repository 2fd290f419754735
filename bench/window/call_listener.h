#pragma once

#include <functional>

#include "api/trace.h"
#include "window/message_dock.h"

namespace vanzet::window {

/// Shows the calls of a module as they come: the lines that it sends, the answers that it reads, and the
/// rest.
class CallListener final : public api::CallLog {
 public:
  /// `afterLine` is called when a line has run, which may have changed the drawing.
  CallListener(MessageDock& messages, std::function<void()> afterLine)
      : messages_(messages), afterLine_(std::move(afterLine)) {}

  Result<void> Write(const char* call, const api::Json& arguments, const api::Json& result,
                     const api::Json& out) override;

 private:
  MessageDock& messages_;
  std::function<void()> afterLine_;
};

}  // namespace vanzet::window
