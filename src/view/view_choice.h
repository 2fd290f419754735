#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/console_boxes.h"
#include "platform/message_box.h"
#include "view/script/script_boxes.h"
#include "view/script/transcript.h"

namespace vanzet::view {

/// Decides who shows what a person has to see. The one place where that is decided.
///
/// VANZET_SCRIPT names a file      the script serves; VANZET_TRANSCRIPT names the file of the transcript
/// otherwise                       the console: standard error, and the safe answer to questions
///
/// The transcript is begun once for each name and goes on over later choices of the same process.
class ViewChoice {
 public:
  /// Looks at the environment anew. The presenter belongs to the choice and lives until the next call.
  platform::BoxPresenter& Choose();

 private:
  Transcript& TranscriptTo(const std::string& file);

  platform::ConsoleBoxes console_;
  std::string transcriptFile_;
  std::unique_ptr<Transcript> transcript_;
  std::optional<ScriptBoxes> script_;
};

}  // namespace vanzet::view
