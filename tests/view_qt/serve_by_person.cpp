#include <QTimer>
#include <cstdlib>
#include <deque>
#include <fstream>
#include <sstream>

#include "dialog/dialog_fixture.h"
#include "dialog/dlg_main.h"
#include "platform/files.h"
#include "view/qt/qt_view.h"
#include "view/script/recording_view.h"
#include "view/script/transcript.h"
#include "view_qt/person.h"

namespace vanzet::test {
namespace {

using view::ScriptLine;
using view::qt::DialogWindow;

/// The view on a display, served by a person who does what a script says. What happens is written down as the
/// view of scripts does it, so that the same is expected of both.
class PersonView final : public view::View,
                         public platform::BoxPresenter,
                         public platform::FilePresenter,
                         public view::DialogView {
 public:
  PersonView(const std::filesystem::path& script, const std::filesystem::path& transcript)
      : text_(script, std::ios::binary), transcript_(transcript.string()) {
    Next();
    while (!line_.empty() && TakeQueued()) Next();
  }

  platform::BoxPresenter& Boxes() override { return *this; }
  platform::FilePresenter& Files() override { return *this; }
  DialogView* ForDialog() override { return this; }

  std::int32_t Present(const platform::MessageBox& message) override {
    const std::int32_t answer = qt_.Boxes().Present(message);
    transcript_.Box(message, answer);
    return answer;
  }

  std::optional<std::string> Choose(const platform::FileQuestion& question) override {
    std::optional<std::string> chosen;
    if (!files_.empty()) {
      chosen = files_.front();
      files_.pop_front();
    }
    transcript_.FileDialog(question, chosen);
    return chosen;
  }

  std::int32_t Serve(view::Dialog& dialog, void* parent, std::int32_t flags) override {
    std::string by = "close";
    QTimer::singleShot(0, [&] { by = Play(dialog); });
    const std::int32_t result = qt_.Serve(dialog, parent, flags);
    transcript_.Closed(result == view::kClosedByOk ? "ok" : by);
    return result;
  }

  void StateChanged(const view::DialogState& state) override { qt_.StateChanged(state); }
  void SetVisible(bool isVisible) override {
    transcript_.Visible(isVisible);
    qt_.SetVisible(isVisible);
  }
  void Focus(std::int32_t control, bool selectsAll) override {
    transcript_.Focus(control, selectsAll);
    qt_.Focus(control, selectsAll);
  }
  std::optional<std::int32_t> Popup(std::int32_t node,
                                    const std::vector<view::PopupEntry>& entries) override {
    const auto chosen = qt_.Popup(node, entries);
    transcript_.Popup(node, entries, chosen);
    return chosen;
  }
  void* Window() override { return nullptr; }

 private:
  void Next() {
    auto line = script_.Next();
    line_ = line ? *line : ScriptLine();
  }

  /// What is answered later; false for a line that says something else.
  bool TakeQueued() {
    const std::string& word = line_.front().text;
    if (word == "answer")
      responder_.answers.push_back(line_[1].text == "yes" ? 6 : line_[1].text == "no" ? 7 : 2);
    if (word == "file") {
      const bool isCancelled = line_[1].text == "cancel" && !line_[1].isQuoted;
      files_.push_back(isCancelled ? std::nullopt : std::optional(line_[1].text));
    }
    return word == "answer" || word == "file";
  }

  /// Does the lines of the script; what the dialog was closed by.
  std::string Play(view::Dialog& dialog) {
    auto& window = *static_cast<DialogWindow*>(static_cast<QWidget*>(qt_.Window()));
    Person person(window, responder_);
    for (; !line_.empty() && dialog.IsOpen(); Next()) {
      if (TakeQueued()) continue;
      if (line_.front().text == "state") {
        transcript_.State(dialog.State());
        continue;
      }
      const auto done = person.Do(line_);
      if (done) continue;
      transcript_.Error(script_.LineNumber(), done.fault().text);
      window.close();
      return "close";
    }
    if (!dialog.IsOpen()) return "close";
    window.close();
    return "end-of-script";
  }

  std::ifstream text_;
  view::ScriptReader script_{text_};
  ScriptLine line_;
  view::Transcript transcript_;
  view::qt::QtView qt_;
  Responder responder_;
  std::deque<std::optional<std::string>> files_;
};

}  // namespace

void ServeDialog(const std::filesystem::path& script, const std::filesystem::path& transcript, void* parent) {
  const char* const recording = std::getenv("VANZET_RECORD");
  std::unique_ptr<view::View> shown = std::make_unique<PersonView>(script, transcript);
  if (recording != nullptr) {
    const auto begin = [recording] { return std::make_unique<view::Recording>(recording); };
    shown = std::make_unique<view::RecordingView>(std::move(shown), begin);
  }
  view::View& view = *shown;
  const platform::PresenterScope boxes(view.Boxes());
  const platform::FilePresenterScope fileDialogs(view.Files());
  dialog::CDlgMain dialog(parent, *view.ForDialog());
  dialog.RunModalLoop(4);
}

}  // namespace vanzet::test
