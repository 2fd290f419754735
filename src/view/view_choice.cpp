#include "view/view_choice.h"

#include <utility>

#include "base/files/environment.h"
#include "view/console_view.h"
#include "view/native_view.h"
#include "view/script/recording_view.h"
#include "view/script/script_view.h"

namespace vanzet::view {
namespace {

using files::EnvironmentText;

/// The rules of a script: docs/formats/script.md.
ScriptRules RulesFromEnvironment() {
  const std::string mode = EnvironmentText("VANZET_SCRIPT_MODE");
  return {.name = EnvironmentText("VANZET_SCRIPT_NAME"),
          .reportsErrors = mode != "transcript",
          .isStrict = mode == "strict"};
}

}  // namespace

std::unique_ptr<View> ViewChoice::Choose() {
  const std::string recording = EnvironmentText("VANZET_RECORD");
  auto view = ChooseShown();
  if (recording.empty()) return view;
  return std::make_unique<RecordingView>(
      std::move(view), [=, this] { return std::make_unique<Recording>(NextRecording(recording)); });
}

std::string ViewChoice::NextRecording(const std::string& file) {
  if (++recordings_ == 1) return file;
  const std::size_t name = file.find_last_of("/\\") + 1;
  const std::size_t extension = file.find_last_of('.');
  const bool hasExtension = extension != std::string::npos && extension > name;
  return std::string(file).insert(hasExtension ? extension : file.size(), "-" + std::to_string(recordings_));
}

std::unique_ptr<View> ViewChoice::ChooseShown() {
  const std::string script = EnvironmentText("VANZET_SCRIPT");
  if (!script.empty()) {
    return std::make_unique<ScriptView>(script, TranscriptTo(EnvironmentText("VANZET_TRANSCRIPT")),
                                        RulesFromEnvironment());
  }
  std::unique_ptr<View> onDisplay = OnDisplay();
  return onDisplay ? std::move(onDisplay) : std::make_unique<ConsoleView>();
}

std::unique_ptr<View> ViewChoice::OnDisplay() {
  auto view = NativeView();
  if (view) return std::move(*view);
  if (view.fault().Message() != reportedReason_) {
    reportedReason_ = view.fault().Message();
    platform::ConsoleBoxes().Present(
        {"vanzet", "The dialog cannot be shown on a display: " + reportedReason_});
  }
  return nullptr;
}

std::shared_ptr<Transcript> ViewChoice::TranscriptTo(const std::string& file) {
  if (!transcript_ || file != transcriptFile_) {
    transcript_ = std::make_shared<Transcript>(file);
    transcriptFile_ = file;
  }
  return transcript_;
}

}  // namespace vanzet::view
