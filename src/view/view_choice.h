#pragma once

#include <memory>
#include <string>

#include "view/script/transcript.h"
#include "view/view.h"

namespace vanzet::view {

/// Decides who shows what a person has to see. The one place where that is decided.
///
/// VANZET_SCRIPT names a file      the script serves; VANZET_TRANSCRIPT names the file of the transcript
/// otherwise                       the console
///
/// The transcript is begun once for each name and goes on over later choices of the same process.
class ViewChoice {
 public:
  /// Looks at the environment anew. The view serves one call.
  std::unique_ptr<View> Choose();

 private:
  std::shared_ptr<Transcript> TranscriptTo(const std::string& file);

  std::string transcriptFile_;
  std::shared_ptr<Transcript> transcript_;
};

}  // namespace vanzet::view
