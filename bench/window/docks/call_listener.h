#pragma once

#include <functional>

#include "api/trace.h"
#include "window/docks/message_dock.h"

namespace vanzet::window {

/// Shows the calls of a module as they come: the lines that it sends, the answers that it reads, and the
/// rest.
class CallListener final : public api::CallLog {
 public:
  /// `afterCall` is called behind each; a line that has run may have changed the drawing.
  CallListener(MessageDock& messages, std::function<void(bool isLine)> afterCall)
      : messages_(messages), afterCall_(std::move(afterCall)) {}

  Result<void> Write(const char* call, const api::Json& arguments, const api::Json& result,
                     const api::Json& out) override;

 private:
  MessageDock& messages_;
  std::function<void(bool isLine)> afterCall_;
};

}  // namespace vanzet::window
