#include "view/view_choice.h"

#include <cstdlib>

#include "view/console_view.h"
#include "view/script/script_view.h"

namespace vanzet::view {
namespace {

std::string FromEnvironment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

}  // namespace

std::unique_ptr<View> ViewChoice::Choose() {
  const std::string script = FromEnvironment("VANZET_SCRIPT");
  if (script.empty()) return std::make_unique<ConsoleView>();
  return std::make_unique<ScriptView>(script, TranscriptTo(FromEnvironment("VANZET_TRANSCRIPT")));
}

std::shared_ptr<Transcript> ViewChoice::TranscriptTo(const std::string& file) {
  if (!transcript_ || file != transcriptFile_) {
    transcript_ = std::make_shared<Transcript>(file);
    transcriptFile_ = file;
  }
  return transcript_;
}

}  // namespace vanzet::view
