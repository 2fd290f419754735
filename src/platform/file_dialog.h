#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace vanzet::platform {

/// What a person is asked when a file has to be chosen.
struct FileQuestion {
  enum class Kind { kOpen, kSave };

  Kind kind = Kind::kOpen;
  std::string filter = {};            ///< "VDM Files (*.vdm)|*.vdm||"; empty: all files
  std::string defaultExtension = {};  ///< put behind a name that has none; without its point
  std::string startFolder = {};       ///< empty: the current one
  std::string suggested = {};         ///< the file name that stands there at first; it need not exist
  bool promptsOverwrite = false;      ///< a file that is there has to be confirmed
  std::size_t longestPath = 1023;     ///< in bytes; a longer one counts as no choice
  void* owner = nullptr;              ///< the window in front of which it stands; null: none
};

/// Whoever has files chosen: a person's screen, a script.
class FilePresenter {
 public:
  virtual ~FilePresenter() = default;

  /// The path that was chosen, as text; nothing when it was cancelled. Returns when that is known.
  virtual std::optional<std::string> Choose(const FileQuestion& question) = 0;
};

/// Asks through the presenter of the moment. The current directory of the process is afterwards the one it
/// was, whatever the presenter does to it.
std::optional<std::string> AskForFile(const FileQuestion& question);

/// Makes `presenter` the one of the moment while it lives, and then puts the former one back.
/// At first every question counts as cancelled: there is nobody to choose.
class FilePresenterScope {
 public:
  /// `presenter` has to outlive the scope.
  explicit FilePresenterScope(FilePresenter& presenter);
  ~FilePresenterScope();
  FilePresenterScope(const FilePresenterScope&) = delete;
  FilePresenterScope& operator=(const FilePresenterScope&) = delete;

 private:
  FilePresenter* former_;
};

}  // namespace vanzet::platform
