#include "view/view_choice.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "platform/symbols.h"
#include "view/console_view.h"
#include "view/script/recording_view.h"
#include "view/script/script_view.h"
#include "view/view_library.h"

namespace vanzet::view {
namespace {

#if defined(_WIN32)
constexpr const char* kQtLibrary = "vanzet-view-qt.dll";
#else
constexpr const char* kQtLibrary = "libvanzet-view-qt.so";
#endif

std::string FromEnvironment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

bool HasDisplay() {
  constexpr const char* kVariables[] = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
  return std::ranges::any_of(kVariables, [](const char* name) { return !FromEnvironment(name).empty(); });
}

/// The rules of a script: docs/formats/script.md.
ScriptRules RulesFromEnvironment() {
  const std::string mode = FromEnvironment("VANZET_SCRIPT_MODE");
  return {.name = FromEnvironment("VANZET_SCRIPT_NAME"),
          .reportsErrors = mode != "transcript",
          .isStrict = mode == "strict"};
}

std::filesystem::path QtLibrary() {
  const std::string named = FromEnvironment("VANZET_VIEW_QT");
  return named.empty() ? platform::OwnFolder() / kQtLibrary : std::filesystem::path(named);
}

}  // namespace

std::unique_ptr<View> ViewChoice::Choose() {
  const std::string recording = FromEnvironment("VANZET_RECORD");
  auto view = ChooseShown();
  if (recording.empty()) return view;
  return std::make_unique<RecordingView>(
      std::move(view), [=, this] { return std::make_unique<Recording>(NextRecording(recording)); });
}

std::string ViewChoice::NextRecording(const std::string& file) {
  if (++recordings_ == 1) return file;
  const std::filesystem::path path(file);
  const std::string name = path.stem().string() + "-" + std::to_string(recordings_);
  return (path.parent_path() / (name + path.extension().string())).string();
}

std::unique_ptr<View> ViewChoice::ChooseShown() {
  const std::string script = FromEnvironment("VANZET_SCRIPT");
  if (!script.empty()) {
    return std::make_unique<ScriptView>(script, TranscriptTo(FromEnvironment("VANZET_TRANSCRIPT")),
                                        RulesFromEnvironment());
  }
  std::unique_ptr<View> onDisplay = HasDisplay() ? OnDisplay() : nullptr;
  return onDisplay ? std::move(onDisplay) : std::make_unique<ConsoleView>();
}

std::unique_ptr<View> ViewChoice::OnDisplay() {
  auto view = ViewFromLibrary(QtLibrary());
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
