#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "platform/message_box.h"
#include "view/script/script.h"
#include "view/script/transcript.h"

namespace vanzet::view {

/// Boxes served by a script and written to a transcript.
///
/// A question takes the next queued answer; without one it gets No. A box
/// with one button is answered OK and uses up nothing.
class ScriptBoxes final : public platform::BoxPresenter {
 public:
  /// Queues the answers that stand before all other commands of the script, up to the first line that cannot
  /// be done, which is an error of the transcript. The transcript has to outlive the boxes.
  ScriptBoxes(const std::string& scriptFile, Transcript& transcript);

  std::int32_t Present(const platform::MessageBox& message) override;

 private:
  void QueueLeadingAnswers(ScriptReader& script);

  /// Takes one of those lines. Requires: it begins with "answer" or "file".
  Result<void> Queue(const std::vector<std::string>& words);

  Transcript& transcript_;
  std::deque<std::int32_t> answers_;
};

}  // namespace vanzet::view
