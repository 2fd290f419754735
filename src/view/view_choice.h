#pragma once

#include <memory>
#include <string>

#include "view/script/transcript.h"
#include "view/view.h"

namespace vanzet::view {

/// Decides which view serves the user. Nothing else decides it.
///
/// VANZET_SCRIPT names a file      the script serves; VANZET_TRANSCRIPT names the file of the transcript,
///                                 VANZET_SCRIPT_NAME the script in faults; VANZET_SCRIPT_MODE has its rules
/// a display exists                the Qt view, from its library next to the module or from the file that
///                                 VANZET_VIEW_QT names. DISPLAY, WAYLAND_DISPLAY or QT_QPA_PLATFORM say that
///                                 a display exists. Windows has no view on a display
/// otherwise                       the console; also, after a line with the reason, when that library or the
///                                 display does not work
///
/// Where VANZET_RECORD names a file, what the person does in a dialog is written there as a script; for the
/// second dialog of the process "job.txt" becomes "job-2.txt", and so on.
///
/// A transcript is begun once for each name, and later choices of the same process continue it.
class ViewChoice {
 public:
  /// Reads the environment again. The view serves one call; the choice has to outlive it.
  std::unique_ptr<View> Choose();

 private:
  std::unique_ptr<View> ChooseShown();
  std::string NextRecording(const std::string& file);
  std::shared_ptr<Transcript> TranscriptTo(const std::string& file);

  /// The view on the display; null, after a line the first time, when it does not work.
  std::unique_ptr<View> OnDisplay();

  std::string transcriptFile_;
  std::shared_ptr<Transcript> transcript_;
  int recordings_ = 0;
  std::string reportedReason_;  ///< why the display did not work, as it was reported last
};

}  // namespace vanzet::view
