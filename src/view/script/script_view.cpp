#include "view/script/script_view.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/files.h"
#include "platform/host_extensions.h"
#include "view/script/names.h"
#include "view/script/script_commands.h"

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

/// Removes the front of a queue and returns it; empty when the queue is.
template <class T>
std::optional<T> PopFront(std::deque<T>& queue) {
  if (queue.empty()) return std::nullopt;
  std::optional<T> front = std::move(queue.front());
  queue.pop_front();
  return front;
}

}  // namespace

/// A command of the script that is not for the dialog alone.
struct ScriptView::Command {
  std::string_view word;
  bool isLeading;  ///< also allowed before the dialog starts
  Result<void> (ScriptView::*run)(Dialog*, const ScriptLine&);
};

const ScriptView::Command ScriptView::kCommands[] = {
    {"answer", true, &ScriptView::Answer},
    {"context", false, &ScriptView::Context},
    {"file", true, &ScriptView::File},
    {"state", false, &ScriptView::State},
};

ScriptView::ScriptView(const std::string& scriptFile, std::shared_ptr<Transcript> transcript,
                       ScriptRules rules)
    : transcript_(std::move(transcript)), rules_(std::move(rules)) {
  if (rules_.name.empty()) rules_.name = scriptFile;
  if (platform::IsReadableFile(scriptFile)) text_.open(platform::FileOf(scriptFile), std::ios::binary);
  if (text_.is_open()) {
    QueueLeadingLines();
    return;
  }
  isRefused_ = true;
  transcript_->Error(0, scriptFile + ": cannot be read");
  Report({.text = "the script cannot be read", .kind = FaultKind::kSystem});
}

std::int32_t ScriptView::Present(const platform::MessageBox& message) {
  const bool isQuestion = platform::IsQuestion(message.type);
  const auto queued = isQuestion ? PopFront(answers_) : std::nullopt;
  const std::int32_t given = queued.value_or(isQuestion ? platform::answer::kNo : platform::answer::kOk);
  transcript_->Box(message, given);
  if (!queued)
    Surprise((isQuestion ? "a question without an answer: '" : "a message: '") + message.text + "'");
  return given;
}

std::optional<std::string> ScriptView::Choose(const platform::FileQuestion& question) {
  const auto queued = PopFront(files_);
  std::optional<std::string> result = queued.value_or(std::nullopt);
  transcript_->FileDialog(question, result);
  if (!queued) Surprise("a file dialog without a 'file' line");
  return result;
}

std::int32_t ScriptView::Serve(Dialog& dialog, void* /*parent*/, std::int32_t /*flags*/) {
  while (dialog.IsOpen() && CanGoOn() && !line_.empty()) Step(dialog);
  const bool isEnd = dialog.IsOpen() && CanGoOn();
  if (dialog.IsOpen()) dialog.Close();
  transcript_->Closed(dialog.Result() == kClosedByOk ? "ok" : isEnd ? "end-of-script" : "close");
  return dialog.Result();
}

void ScriptView::Step(Dialog& dialog) {
  running_ = script_.LineNumber();
  if (const auto done = Run(dialog, line_); !done) return Refuse(done.fault());
  if (!dialog.IsOpen()) return;
  auto next = script_.Next();
  if (!next) return Refuse(next.fault());
  line_ = std::move(*next);
}

Result<void> ScriptView::Run(Dialog& dialog, const ScriptLine& line) {
  const Command* const own = CommandOf(line);
  return own == nullptr ? RunOnDialog(dialog, line) : (this->*own->run)(&dialog, line);
}

void ScriptView::SetVisible(bool isVisible) {
  transcript_->Visible(isVisible);
}

void ScriptView::Focus(std::int32_t control, bool selectsAll) {
  transcript_->Focus(control, selectsAll);
}

std::optional<std::int32_t> ScriptView::Popup(std::int32_t node, const std::vector<PopupEntry>& entries) {
  const bool isThere = wanted_ && std::ranges::find(entries, *wanted_, &PopupEntry::command) != entries.end();
  const std::optional<std::int32_t> chosen = isThere ? std::exchange(wanted_, std::nullopt) : std::nullopt;
  transcript_->Popup(node, entries, chosen);
  return chosen;
}

const ScriptView::Command* ScriptView::CommandOf(const ScriptLine& line) {
  const Command* const command = std::ranges::find(kCommands, line.front().text, &Command::word);
  return command == std::end(kCommands) ? nullptr : command;
}

void ScriptView::QueueLeadingLines() {
  for (;;) {
    auto line = script_.Next();
    if (!line) return Refuse(line.fault());
    const Command* const command = line->empty() ? nullptr : CommandOf(*line);
    if (command == nullptr || !command->isLeading) {
      line_ = std::move(*line);
      return;
    }
    if (const auto done = (this->*command->run)(nullptr, *line); !done) return Refuse(done.fault());
  }
}

void ScriptView::Refuse(Fault fault) {
  isRefused_ = true;
  fault.line = script_.LineNumber();
  transcript_->Error(fault.line, fault.text);
  Report(fault);
}

void ScriptView::Surprise(const std::string& what) {
  // The first surprise may cause others.
  if (!rules_.isStrict || isRefused_) return;
  isRefused_ = true;
  Report({.text = "the script did not await " + what, .line = running_});
}

void ScriptView::Report(const Fault& fault) {
  if (!rules_.reportsErrors) return;
  Fault named = fault;
  named.file = rules_.name;
  platform::ReportFault(named);
}

Result<void> ScriptView::Answer(Dialog* /*dialog*/, const ScriptLine& line) {
  const auto* const row = line.size() != 2 ? std::end(kAnswerWords)
                                           : std::ranges::find(kAnswerWords, line[1].text, &AnswerWord::word);
  if (row == std::end(kAnswerWords)) return Fault{"expected 'answer yes', 'answer no' or 'answer cancel'"};
  answers_.push_back(row->answer);
  return {};
}

Result<void> ScriptView::File(Dialog* /*dialog*/, const ScriptLine& line) {
  if (line.size() != 2) return Fault{"expected 'file \"PATH\"' or 'file cancel'"};
  const bool isCancelled = line[1].text == "cancel" && !line[1].isQuoted;
  files_.push_back(isCancelled ? std::nullopt : std::optional(line[1].text));
  return {};
}

Result<void> ScriptView::State(Dialog* dialog, const ScriptLine& line) {
  if (line.size() != 1) return Fault{"'state' takes no arguments"};
  transcript_->State(dialog->State());
  return {};
}

Result<void> ScriptView::Context(Dialog* dialog, const ScriptLine& line) {
  if (line.size() != 2 && line.size() != 3) return Fault{"'context' takes NODE or NODE COMMAND"};
  VANZET_TRY(const std::int32_t node, NodeIn(dialog->State(), line[1]));
  if (line.size() == 3) {
    wanted_ = CommandId(line[2].text);
    if (!wanted_) return Fault{"'" + line[2].text + "' is not a command"};
  }
  dialog->ContextAt(node);
  if (std::exchange(wanted_, std::nullopt)) {
    return Fault{"node " + line[1].text + " does not offer command " + line[2].text};
  }
  return {};
}

}  // namespace vanzet::view
