#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace vanzet::platform {

/// The question to a person who chooses a file.
struct FileQuestion {
  enum class Kind { kOpen, kSave };

  Kind kind = Kind::kOpen;
  std::string filter = {};            ///< "VDM Files (*.vdm)|*.vdm||"; empty: all files
  std::string defaultExtension = {};  ///< added to a name that has none; without its point
  std::string startFolder = {};       ///< empty: the current one
  std::string suggested = {};         ///< the file name at first; it need not exist
  bool promptsOverwrite = false;      ///< a file that exists has to be confirmed
  std::size_t longestPath = 1023;     ///< in bytes; a longer one counts as no choice
  void* owner = nullptr;              ///< the window in front of which it is shown; null: none
};

/// Lets a person or a script choose files.
class FilePresenter {
 public:
  virtual ~FilePresenter() = default;

  /// Returns the chosen path as text, or nothing when the choice was cancelled.
  virtual std::optional<std::string> Choose(const FileQuestion& question) = 0;
};

/// Asks through the current presenter. The working directory of the process is restored afterwards, whatever
/// the presenter did to it.
std::optional<std::string> AskForFile(const FileQuestion& question);

/// Makes `presenter` the current one until the destructor restores the former one. Without any scope every
/// question counts as cancelled.
class FilePresenterScope {
 public:
  /// `presenter` must outlive the scope.
  explicit FilePresenterScope(FilePresenter& presenter);
  ~FilePresenterScope();
  FilePresenterScope(const FilePresenterScope&) = delete;
  FilePresenterScope& operator=(const FilePresenterScope&) = delete;

 private:
  FilePresenter* former_;
};

}  // namespace vanzet::platform
