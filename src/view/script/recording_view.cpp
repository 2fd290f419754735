#include "view/script/recording_view.h"

#include <utility>

namespace vanzet::view {
namespace {

std::string AnswerLine(std::int32_t answer) {
  switch (answer) {
    case platform::answer::kYes: return "answer yes";
    case platform::answer::kNo: return "answer no";
    default: return "answer cancel";
  }
}

}  // namespace

std::int32_t RecordingView::Present(const platform::MessageBox& message) {
  const std::int32_t answer = shown_->Boxes().Present(message);
  if (platform::IsQuestion(message.type)) happenings_.answers.push_back(AnswerLine(answer));
  return answer;
}

std::optional<std::string> RecordingView::Choose(const platform::FileQuestion& question) {
  auto file = shown_->Files().Choose(question);
  happenings_.answers.push_back("file " + (file ? QuotedScriptWord(*file) : "cancel"));
  return file;
}

std::int32_t RecordingView::Serve(Dialog& dialog, void* parent, std::int32_t flags) {
  const std::unique_ptr<Recording> recording = begin_();
  for (const std::string& answer : std::exchange(happenings_.answers, {})) recording->Add(answer);
  RecordingDialog recorded(dialog, *recording, happenings_);
  return shown_->ForDialog()->Serve(recorded, parent, flags);
}

void RecordingView::SetVisible(bool isVisible) {
  if (!isVisible) happenings_.hasPicked = true;
  shown_->ForDialog()->SetVisible(isVisible);
}

std::optional<std::int32_t> RecordingView::Popup(std::int32_t node, const std::vector<PopupEntry>& entries) {
  happenings_.command = shown_->ForDialog()->Popup(node, entries);
  return happenings_.command;
}

}  // namespace vanzet::view
