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
FilePresenter* currentPresenter = &nobody;

/// Restores the working directory: dialogs of some platforms change it to the folder that the person opened.
class CurrentFolderGuard {
 public:
  CurrentFolderGuard() : folder_(std::filesystem::current_path(unknown_)) {}
  ~CurrentFolderGuard() {
    if (!unknown_) std::filesystem::current_path(folder_, unknown_);
  }
  CurrentFolderGuard(const CurrentFolderGuard&) = delete;
  CurrentFolderGuard& operator=(const CurrentFolderGuard&) = delete;

 private:
  std::error_code unknown_;  ///< set when the working directory no longer exists; then it cannot be restored
  std::filesystem::path folder_;
};

}  // namespace

std::optional<std::string> AskForFile(const FileQuestion& question) {
  const CurrentFolderGuard guard;
  std::optional<std::string> chosen = currentPresenter->Choose(question);
  if (chosen && chosen->size() > question.longestPath) return std::nullopt;
  return chosen;
}

FilePresenterScope::FilePresenterScope(FilePresenter& presenter) : former_(currentPresenter) {
  currentPresenter = &presenter;
}

FilePresenterScope::~FilePresenterScope() {
  currentPresenter = former_;
}

}  // namespace vanzet::platform
