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

std::optional<std::int32_t> AnswerOf(const ScriptLine& line) {
  if (line.words.size() != 2) return std::nullopt;
  const auto* const row = std::ranges::find(kAnswerWords, line.words[1], &AnswerWord::word);
  return row == std::end(kAnswerWords) ? std::nullopt : std::optional(row->answer);
}

}  // namespace

ScriptBoxes::ScriptBoxes(const std::string& scriptFile, Transcript& transcript) : transcript_(transcript) {
  if (!platform::IsReadableFile(scriptFile)) {
    transcript_.Error(0, scriptFile + ": cannot be read");
    return;
  }
  std::ifstream text(platform::FileOf(scriptFile), std::ios::binary);
  const auto script = ReadScript(text);
  if (script) {
    QueueLeadingAnswers(*script);
  } else {
    transcript_.Error(script.fault().line, script.fault().text);
  }
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

void ScriptBoxes::QueueLeadingAnswers(const std::vector<ScriptLine>& script) {
  for (const ScriptLine& line : script) {
    // Results of file dialogs may stand among the answers; what follows serves the dialog.
    if (line.words.front() == "file") continue;
    if (line.words.front() != "answer") return;
    const auto answer = AnswerOf(line);
    if (!answer) {
      transcript_.Error(line.number, "expected 'answer yes', 'answer no' or 'answer cancel'");
      return;
    }
    answers_.push_back(*answer);
  }
}

}  // namespace vanzet::view
