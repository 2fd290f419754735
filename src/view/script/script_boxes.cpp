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
  auto words = script.Next();
  // Results of file dialogs may stand among the answers; they serve the dialog.
  while (words && !words->empty() && (words->front() == "answer" || words->front() == "file")) {
    if (const auto queued = Queue(*words); !queued) {
      return transcript_.Error(script.LineNumber(), queued.fault().text);
    }
    words = script.Next();
  }
  if (!words) transcript_.Error(script.LineNumber(), words.fault().text);
}

Result<void> ScriptBoxes::Queue(const std::vector<std::string>& words) {
  if (words.front() == "file") {
    return words.size() == 2 ? Result<void>() : Fault{"expected 'file \"PATH\"' or 'file cancel'"};
  }
  const auto answer = AnswerOf(words);
  if (!answer) return Fault{"expected 'answer yes', 'answer no' or 'answer cancel'"};
  answers_.push_back(*answer);
  return {};
}

}  // namespace vanzet::view
