#pragma once

#include <memory>
#include <string>

#include "view/script/transcript.h"
#include "view/view.h"

namespace vanzet::view {

/// Decides who shows what a person has to see. The one place where that is decided.
///
/// VANZET_SCRIPT names a file      the script serves; VANZET_TRANSCRIPT names the file of the transcript
/// a display is there              the Qt view, from its library beside the module or where VANZET_VIEW_QT
///                                 says. DISPLAY, WAYLAND_DISPLAY or QT_QPA_PLATFORM tell that one is there
/// otherwise                       the console; also, after a line that says why, where that library or the
///                                 display does not answer
///
/// The transcript is begun once for each name and goes on over later choices of the same process.
class ViewChoice {
 public:
  /// Looks at the environment anew. The view serves one call.
  std::unique_ptr<View> Choose();

 private:
  std::shared_ptr<Transcript> TranscriptTo(const std::string& file);

  /// The view on the display; null, after a line the first time, where it cannot be had.
  std::unique_ptr<View> OnDisplay();

  std::string transcriptFile_;
  std::shared_ptr<Transcript> transcript_;
  std::string toldReason_;  ///< why there was no view on the display, as it was told last
};

}  // namespace vanzet::view
