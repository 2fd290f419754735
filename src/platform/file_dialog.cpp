#include "platform/file_dialog.h"

#include <filesystem>
#include <system_error>

namespace vanzet::platform {
namespace {

class Nobody final : public FilePresenter {
 public:
  std::optional<std::string> Choose(const FileQuestion& /*question*/) override { return std::nullopt; }
};

Nobody nobody;
FilePresenter* presenterOfTheMoment = &nobody;

/// Puts the current directory back: dialogs of some platforms leave it where the person went.
class CurrentFolderGuard {
 public:
  CurrentFolderGuard() : folder_(std::filesystem::current_path(unknown_)) {}
  ~CurrentFolderGuard() {
    if (!unknown_) std::filesystem::current_path(folder_, unknown_);
  }
  CurrentFolderGuard(const CurrentFolderGuard&) = delete;
  CurrentFolderGuard& operator=(const CurrentFolderGuard&) = delete;

 private:
  std::error_code unknown_;  ///< set when the current directory is gone; then there is none to go back to
  std::filesystem::path folder_;
};

}  // namespace

std::optional<std::string> AskForFile(const FileQuestion& question) {
  const CurrentFolderGuard guard;
  std::optional<std::string> chosen = presenterOfTheMoment->Choose(question);
  if (chosen && chosen->size() > question.longestPath) return std::nullopt;
  return chosen;
}

FilePresenterScope::FilePresenterScope(FilePresenter& presenter) : former_(presenterOfTheMoment) {
  presenterOfTheMoment = &presenter;
}

FilePresenterScope::~FilePresenterScope() {
  presenterOfTheMoment = former_;
}

}  // namespace vanzet::platform
