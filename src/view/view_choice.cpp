#include "view/view_choice.h"

#include <cstdlib>

namespace vanzet::view {
namespace {

std::string FromEnvironment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

}  // namespace

platform::BoxPresenter& ViewChoice::Choose() {
  const std::string script = FromEnvironment("VANZET_SCRIPT");
  if (script.empty()) return console_;
  return script_.emplace(script, TranscriptTo(FromEnvironment("VANZET_TRANSCRIPT")));
}

Transcript& ViewChoice::TranscriptTo(const std::string& file) {
  if (!transcript_ || file != transcriptFile_) {
    transcript_ = std::make_unique<Transcript>(file);
    transcriptFile_ = file;
  }
  return *transcript_;
}

}  // namespace vanzet::view
