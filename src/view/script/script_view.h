#pragma once

#include <cstdint>
#include <deque>
#include <fstream>
#include <memory>
#include <optional>
#include <string>

#include "view/script/script.h"
#include "view/script/transcript.h"
#include "view/view.h"

namespace vanzet::view {

/// How a script is played.
struct ScriptRules {
  std::string name = {};      ///< of the script in faults; empty: the name of its file
  bool reportsErrors = true;  ///< a line that fails is also a fault of the host
  bool isStrict = false;      ///< what no line of the script awaited is a fault and ends the script
};

/// Plays the user from a script, and writes what happens to a transcript: docs/formats/script.md.
///
/// Boxes    a question takes the next queued answer, or gets No without one. A box with one button is
///          answered OK and takes none
/// Files    a file dialog takes the next queued result, or is cancelled without one
/// Strict   a box or file dialog that takes no queued answer is a fault of the host, and closes the dialog
/// Errors   a line that fails is an event of the transcript and a fault of the host, and closes the dialog;
///          so does a transcript that cannot be written
class ScriptView final : public View,
                         public platform::BoxPresenter,
                         public platform::FilePresenter,
                         public DialogView {
 public:
  /// Queues the answers and files at the head of the script, before all other commands.
  ScriptView(const std::string& scriptFile, std::shared_ptr<Transcript> transcript, ScriptRules rules = {});

  platform::BoxPresenter& Boxes() override { return *this; }
  platform::FilePresenter& Files() override { return *this; }
  DialogView* ForDialog() override { return this; }

  std::int32_t Present(const platform::MessageBox& message) override;
  std::optional<std::string> Choose(const platform::FileQuestion& question) override;

  /// Runs the remaining lines of the script.
  std::int32_t Serve(Dialog& dialog, void* parent, std::int32_t flags) override;
  void StateChanged(const DialogState& /*state*/) override {}
  void SetVisible(bool isVisible) override;
  void Focus(std::int32_t control, bool selectsAll) override;
  std::optional<std::int32_t> Popup(std::int32_t node, const std::vector<PopupEntry>& entries) override;
  void* Window() override { return nullptr; }

 private:
  struct Command;
  static const Command kCommands[];
  static const Command* CommandOf(const ScriptLine& line);

  void QueueLeadingLines();

  /// Ends the script: writes the error of a line, and reports it.
  void Refuse(Fault fault);
  void Report(const Fault& fault);

  /// Ends a strict script at what no line awaited.
  void Surprise(const std::string& what);
  bool CanGoOn() const { return !isRefused_ && transcript_->IsComplete(); }

  /// Runs the line that was read last, and reads the next one.
  void Step(Dialog& dialog);
  Result<void> Run(Dialog& dialog, const ScriptLine& line);

  // The commands that are not for the dialog alone.
  Result<void> Answer(Dialog* dialog, const ScriptLine& line);
  Result<void> File(Dialog* dialog, const ScriptLine& line);
  Result<void> State(Dialog* dialog, const ScriptLine& line);
  Result<void> Context(Dialog* dialog, const ScriptLine& line);

  std::shared_ptr<Transcript> transcript_;
  ScriptRules rules_;
  std::ifstream text_;
  ScriptReader script_{text_};
  ScriptLine line_;         ///< the line read last, not run yet; without words at the end
  int running_ = 0;         ///< the number of the line that is run; 0 before the first one
  bool isRefused_ = false;  ///< a line failed: the dialog closes
  std::deque<std::int32_t> answers_;
  std::deque<std::optional<std::string>> files_;
  std::optional<std::int32_t> wanted_;  ///< the command to choose from the next popup
};

}  // namespace vanzet::view
