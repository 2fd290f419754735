#include "view/script/script_boxes.h"

#include <algorithm>
#include <fstream>
#include <optional>

#include "platform/files.h"

namespace vanzet::view {
namespace {

struct AnswerWord {
  std::string_view word;
  std::int32_t answer;
};

constexpr AnswerWord kAnswerWords[] = {
    {"yes", platform::answer::kYes},
    {"no", platform::answer::kNo},
    {"cancel", platform::answer::kCancel},
};

using Words = std::vector<std::string>;

std::optional<std::int32_t> AnswerOf(const Words& words) {
  if (words.size() != 2) return std::nullopt;
  const auto* const row = std::ranges::find(kAnswerWords, words[1], &AnswerWord::word);
  return row == std::end(kAnswerWords) ? std::nullopt : std::optional(row->answer);
}

}  // namespace

ScriptBoxes::ScriptBoxes(const std::string& scriptFile, Transcript& transcript) : transcript_(transcript) {
  if (!platform::IsReadableFile(scriptFile)) {
    transcript_.Error(0, scriptFile + ": cannot be read");
    return;
  }
  std::ifstream text(platform::FileOf(scriptFile), std::ios::binary);
  ScriptReader script(text);
  QueueLeadingAnswers(script);
}

std::int32_t ScriptBoxes::Present(const platform::MessageBox& message) {
  std::int32_t given = platform::IsQuestion(message.type) ? platform::answer::kNo : platform::answer::kOk;
  if (platform::IsQuestion(message.type) && !answers_.empty()) {
    given = answers_.front();
    answers_.pop_front();
  }
  transcript_.Box(message, given);
  return given;
}

void ScriptBoxes::QueueLeadingAnswers(ScriptReader& script) {
  for (;;) {
    const auto words = script.Next();
    if (!words) return transcript_.Error(script.LineNumber(), words.fault().text);
    if (words->empty()) return;
    if (words->front() == "answer") {
      const auto answer = AnswerOf(*words);
      if (!answer) {
        return transcript_.Error(script.LineNumber(),
                                 "expected 'answer yes', 'answer no' or 'answer cancel'");
      }
      answers_.push_back(*answer);
    } else if (words->front() == "file") {
      // Results of file dialogs may stand among the answers; they serve the dialog.
      if (words->size() != 2) {
        return transcript_.Error(script.LineNumber(), "expected 'file \"PATH\"' or 'file cancel'");
      }
    } else {
      return;
    }
  }
}

}  // namespace vanzet::view
